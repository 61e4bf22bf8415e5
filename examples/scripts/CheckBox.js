checkBox.toggled.connect(function (checked) {
    print(checked ? "on" : "off");
});
print(checkBox.checked); // -> true
checkBox.setChecked(false); // tells no signal
print(checkBox.checked); // -> false

// The operator clicks checkBox. -> on
// The document brings <CheckBox>true</CheckBox>. -> on
