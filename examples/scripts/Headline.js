// What a group shows follows a control, not the headline, whose state no script reads.
texts.setText("Texts"); // before the form is built this is the title
print(texts.text); // -> Texts
lineEdit.editingFinished.connect(function () {
    lineEdit.setVisible(lineEdit.text != "");
    print(lineEdit.visible);
});

// The operator enters ANT 2 into lineEdit. -> true
