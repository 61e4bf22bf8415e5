frequencyRangeEdit.rangeChanged.connect(function (start, stop) {
    print(start / 1000000 + " to " + stop / 1000000);
});
frequencyRangeEdit.setRange(430000000, 440000000); // start first, then stop
print(frequencyRangeEdit.stopFrequency - frequencyRangeEdit.startFrequency); // -> 10000000
frequencyRangeEdit.setStartFrequency(5000000000); // the stop stays below it
print(frequencyRangeEdit.stopFrequency); // -> 440000000
frequencyRangeEdit.setRange(144000000, 146000000);

// The operator enters 145 MHz into frequencyRangeEdit[0]. -> 145 to 146
// The operator enters 144.5 MHz into frequencyRangeEdit[1]. -> 144.499999 to 144.5
