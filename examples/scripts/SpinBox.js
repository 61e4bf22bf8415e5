spinBox.valueChanged.connect(function (decibels) {
    print(decibels + 1);
});
print(typeof spinBox.value); // -> string
print(Number(spinBox.value) + 1); // -> 13
spinBox.setMaximum(40);
spinBox.setValue(99); // beyond the bound, and no signal
print(spinBox.value + 1); // -> 41

// The operator enters 20 into spinBox. -> 21
// The document brings <SpinBox>7</SpinBox>. -> 8
