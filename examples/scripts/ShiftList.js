shiftList.shiftValueChanged.connect(function (index, hertz) {
    print("shift " + index + " is " + hertz + " Hz");
});
shiftList.setShiftValue(0, 170); // as the operator does // -> shift 0 is 170 Hz
print(shiftList.shiftValue(0)); // -> 170
print(shiftList.shiftValue(0) == shiftList.itemValue(0)); // -> true

// The operator enters 450 into shiftList[1]. -> shift 1 is 450 Hz
