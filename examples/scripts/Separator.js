line.setMargin(12); // at the script's start, before the form is built
print(line.margin); // -> 12
