// A button's handler passes the click on to the host; here the script hears it, too.
dsc.si_spectralDetectorProcStatusToggled.connect(function (runs) {
    print(runs);
});
dsc.emitSpectralDetectorProcStatusToggled(true); // -> true
dsc.sl_setScanRanges("<Scan><HFScan><ScanPossible>1</ScanPossible>" // as the host does
    + "<ScanStartFrequency>1500000</ScanStartFrequency>"
    + "<ScanStopFrequency>30000000</ScanStopFrequency></HFScan></Scan>");
print(lbScanHF.text); // -> 1.5 MHz...30 MHz
