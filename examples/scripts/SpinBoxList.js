spinBoxList.valueChanged.connect(function (index, number) {
    print(index + ": " + number);
});
spinBoxList.setItemValue(2, 7); // as the operator does // -> 2: 7
print(spinBoxList.itemValue(2) + spinBoxList.itemValue(0)); // -> 8

// The operator enters 5 into spinBoxList[1]. -> 1: 5
