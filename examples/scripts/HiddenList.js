hiddenList.itemValueChanged.connect(function (index, text) {
    print(index + ": " + text);
});
hiddenList.setItemValue(0, "first"); // -> 0: first
hiddenList.setItemValue(0, "first"); // the same text: nothing
hiddenList.setItemValue(2, "third"); // right behind the last item: refused
hiddenList.setItemCount(3);
hiddenList.setItemValue(2, "third"); // -> 2: third
print("<" + hiddenList.itemValue(1) + ">"); // -> <>
