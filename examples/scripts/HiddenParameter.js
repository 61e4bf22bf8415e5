// Unlike the setters of controls that show, this one tells its signal.
hiddenParameter.valueChanged.connect(function (text) {
    print(text);
});
hiddenParameter.setValue(12.5); // -> 12.5
print(typeof hiddenParameter.value); // -> string
hiddenParameter.setValue("12.5"); // the same text: nothing

// The document brings <HiddenParameter>7</HiddenParameter>. -> 7
//   -> 7
