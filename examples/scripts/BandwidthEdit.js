// The value is in Hz, bounds and step are in kHz, the unit that shows.
bandwidth.valueChanged.connect(function (hertz) {
    print(hertz);
});
print(bandwidth.suffix); // -> kHz
bandwidth.setMaximum(15);
bandwidth.setValue(25000); // beyond the maximum of 15 kHz
print(bandwidth.value); // -> 15000
bandwidth.setUnitScale(1000000); // shows MHz; bounds are in MHz from now on
print(bandwidth.suffix); // -> MHz
bandwidth.setUnitScale(1); // and in Hz
print(bandwidth.suffix); // -> Hz

// The operator enters 12 into bandwidth. -> 12
