audio.si_audioSourceDigital.connect(function () {
    print("digital");
});
audio.setAudioSourceToDigital(); // -> digital
audio.setAudioSourceToDigital(); // -> digital
