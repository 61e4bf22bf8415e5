ipEdit.setInputMask("000.000.000.000;_");
ipEdit.editingFinished.connect(function () {
    print(ipEdit.text);
});
print(ipEdit.text); // -> 10.0.0.1

// The operator enters 10.0.0.2 into ipEdit. -> 10.0.0.2
