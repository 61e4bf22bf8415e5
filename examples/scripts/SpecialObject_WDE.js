wde.setCustomProperty("threshold", -90); // for the host, which reads it by customProperty()
print(wde.customProperty("threshold")); // -> -90
