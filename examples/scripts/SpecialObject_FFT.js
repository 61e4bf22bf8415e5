fft.si_spectralResolutionChanged.connect(function (hertz, microseconds) {
    print(hertz + " Hz, " + microseconds + " us");
});
print(fft.frequencyResolutionString()); // -> -
fft.setFFTLength(1024); // -> 0 Hz, 0 us
fft.setSignalSampleRate(2048000); // -> 2000 Hz, 500 us
print(fft.frequencyResolutionString()); // -> 2 kHz
