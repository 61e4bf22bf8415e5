comboBox.currentValueChanged.connect(function (value) {
    print(value == Demodulation.USB ? "upper sideband" : "value " + value);
});
print(comboBox.currentValue); // -> 2
print(comboBox.firstIndexOfValue(Demodulation.USB)); // -> 2
print(comboBox.itemValue(0)); // -> 1
comboBox.setCurrentValue(Demodulation.AM); // tells no signal
print(comboBox.currentValue == Demodulation.AM); // -> true

// The operator chooses Upper sideband in comboBox. -> upper sideband
// The operator chooses AM in comboBox. -> value 1
