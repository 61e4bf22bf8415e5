// A button's handler opens the list of excluded ranges; "Edit" stands twice in the signal.
fhp.si_editEditExclusionRangesBtnClicked.connect(function () {
    print("the list is wanted");
});
fhp.emitEditExclusionRangesBtnClicked(); // -> the list is wanted
