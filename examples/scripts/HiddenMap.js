hiddenMap.valueAdded.connect(function (key, text) {
    print("new " + key + ": " + text);
});
hiddenMap.valueChanged.connect(function (key, text) {
    print(key + ": " + text);
});
hiddenMap.setValue("mode", "AM"); // -> new mode: AM
hiddenMap.setValue("mode", "FM"); // -> mode: FM
hiddenMap.setValue("band", "2 m"); // -> new band: 2 m
print(hiddenMap.keys()); // -> band,mode
print(hiddenMap.contains("gain")); // -> false
hiddenMap.remove("band");
print(hiddenMap.keys().length); // -> 1
