frequencyEdit.valueChanged.connect(function (hertz) {
    print(hertz / 1000000 + " MHz");
});
print(typeof frequencyEdit.value); // -> string
print(Number(frequencyEdit.value) + 25000); // -> 145525000
frequencyEdit.setMinimum(144000000);
frequencyEdit.setValue(9000); // below the minimum, which counts
print(frequencyEdit.value); // -> 144000000

// The host sets frequencyEdit to 145600000.5. -> 145.6 MHz
// The document brings <FrequencyEdit>146000000</FrequencyEdit>. -> 146 MHz
