doubleSpinBox.valueChanged.connect(function (seconds) {
    print(seconds * 1000 + " ms");
});
print(typeof doubleSpinBox.value); // -> string
print(Number(doubleSpinBox.value) + 1); // -> 2.5
doubleSpinBox.setValue(0.1 + 0.2); // no signal, and no rounding
print(doubleSpinBox.value.toFixed(1)); // -> 0.3

// The operator enters 2.5 into doubleSpinBox. -> 2500 ms
