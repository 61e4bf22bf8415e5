var clicks = 0;
pushButton.clicked.connect(function () {
    ++clicks;
    pushButton.setText("Clicked " + clicks);
    print(pushButton.text);
});

// The operator clicks pushButton. -> Clicked 1
// The operator clicks pushButton. -> Clicked 2
