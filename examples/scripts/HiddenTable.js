hiddenTable.itemValueChanged.connect(function (row, column, text) {
    print(row + "," + column + ": " + text);
});
hiddenTable.setItemValue(0, 1, "right"); // -> 0,1: right
hiddenTable.setItemValue(5, 0, "beyond"); // nothing
hiddenTable.setRowCount(2);
hiddenTable.setItemValue(1, 0, "below"); // -> 1,0: below
hiddenTable.clear();
print("<" + hiddenTable.itemValue(0, 1) + ">"); // -> <>
