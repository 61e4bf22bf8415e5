lineEdit.textEdited.connect(function (text) {
    print("so far " + text + ", document " + lineEdit.text);
});
lineEdit.editingFinished.connect(function () {
    print("finished " + lineEdit.text);
});
lineEdit.setText("ANT 3"); // tells no signal before the form is built
print(lineEdit.text); // -> ANT 3

// The operator types A into lineEdit. -> so far A, document ANT 3
// The operator presses Return. -> so far A, document A
//   -> finished A
