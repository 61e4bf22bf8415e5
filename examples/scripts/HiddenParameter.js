// Unlike the setters of controls that show, this one tells its signal.
hiddenParameter.valueChanged.connect(function (text) {
    print(text);
});
hiddenParameter.setValue(12.5); // -> 12.5
hiddenParameter.setValue("12.5"); // the same text: nothing
print(typeof hiddenParameter.value); // -> string

// The document brings <HiddenParameter>7</HiddenParameter>. -> 7
//   -> 7
