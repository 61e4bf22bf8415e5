tuner.si_segmentChanged.connect(function (centre, width) {
    print((centre - width / 2) / 1000000 + " to " + (centre + width / 2) / 1000000 + " MHz");
});
tuner.emitSegment(145000000, 2000000); // -> 144 to 146 MHz
