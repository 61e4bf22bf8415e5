// Changes wait for the operator, who applies them.
sheet.setAutoApplyEnabled(false);
print(sheet.autoApplyEnabled); // -> false
sheet.si_parametersModified.connect(function () {
    print("the host is told");
});
sheet.applyNow(); // nothing is changed yet, so nobody is told
sheet.emitParametersXml(); // in any case // -> the host is told
checkBox.toggled.connect(function () {
    print("changed");
});

// The operator clicks checkBox. -> changed
// The operator presses Ctrl+Return. -> the host is told
