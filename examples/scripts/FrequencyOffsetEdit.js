offset.valueChanged.connect(function (hertz) {
    print((hertz < 0 ? "below by " : "above by ") + Math.abs(hertz) + " Hz");
});
offset.setValue(-250000); // beyond the minimum
print(offset.value); // -> -100000

// The operator enters -2.5k into offset. -> below by 2500 Hz
