// What a script stores travels in the document, but no cell shows it.
tableWidget.cellChanged.connect(function (row, column) {
    print("cell " + row + "," + column);
});
tableWidget.setItemValue(1, 2, 25); // no signal, nothing on the screen
print(tableWidget.itemValue(1, 2)); // -> 25
print(tableWidget.itemValue(0, 0)); // -> undefined

// The operator enters 7 into tableWidget[0,0]. -> cell 0,0
