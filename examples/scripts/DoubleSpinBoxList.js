doubleSpinBoxList.valueChanged.connect(function (index, number) {
    print(index + ": " + number);
    doubleSpinBoxList.setEnabled(1, number < 2); // locks the second item
    print(doubleSpinBoxList.isEnabled(1));
});
print(doubleSpinBoxList.itemValue(1)); // -> 0.5

// The operator enters 2.5 into doubleSpinBoxList[0]. -> 0: 2.5
//   -> false
