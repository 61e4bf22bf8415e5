// It is the host that loads a script, and turns on the lamp; here the click does.
scriptControl.loadScriptClicked.connect(function () {
    scriptControl.setCustomProperty("scriptloaded", true); // turns the lamp on, frees Clear
    print(scriptControl.customProperty("scriptloaded"));
});
scriptControl.clearScriptClicked.connect(function () {
    scriptControl.setCustomProperty("scriptloaded", false);
    print("cleared");
});

// The operator clicks scriptControl_LoadButton. -> true
// The operator clicks scriptControlClearButton. -> cleared
