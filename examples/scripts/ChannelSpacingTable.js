spacings.spacingValueChanged.connect(function (row, kilohertz) {
    print(row + ": " + kilohertz);
});
spacings.setAllSpacingValues(12.5); // at the start, without signals
print(spacings.spacingValue(2)); // -> 12.5
spacings.spacingChanged.connect(function (row) {
    if (row == 0)
        spacings.setSpacingValue(2, 50); // the last row follows the first one
});

// The operator enters 25 into spacings[1,0]. -> 1: 25
// The operator enters 6.25 into spacings[0,0]. -> 2: 50
//   -> 0: 6.25
