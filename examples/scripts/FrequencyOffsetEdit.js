offset.valueChanged.connect(function (hertz) {
    print((hertz < 0 ? "below by " : "above by ") + Math.abs(hertz) + " Hz");
});
offset.setMaximum(0);
offset.setValue(-4000); // no signal
print(offset.value); // -> -4000

// The operator enters -2.5k into offset. -> below by 2500 Hz
