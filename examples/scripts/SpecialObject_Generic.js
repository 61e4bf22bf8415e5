generic.customPropertyChanged.connect(function (name, value) {
    print(name + " is " + value);
});
generic.setCustomProperty("channel", 7); // -> channel is 7
generic.setCustomProperty("channel", 7); // the same: nothing
print(generic.customProperty("channel") + 1); // -> 8
print(generic.customProperty("gain")); // -> undefined
