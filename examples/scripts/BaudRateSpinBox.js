baudRate.valueChanged.connect(function (baud) {
    print(10000 / baud + " ms a character");
});
baudRate.setSingleStep(100);
baudRate.setValue(1000000); // beyond the maximum
print(baudRate.value); // -> 115200

// The operator enters 2500 into baudRate. -> 4 ms a character
