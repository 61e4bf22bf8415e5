baudRate.valueChanged.connect(function (baud) {
    print(10000 / baud + " ms a character");
});
baudRate.setSingleStep(100);
baudRate.setValue(19200); // no signal
print(baudRate.value); // -> 19200

// The operator enters 2500 into baudRate. -> 4 ms a character
