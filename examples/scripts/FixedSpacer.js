gap.setHeight(20); // at the script's start, before the form is built
print(gap.height); // -> 20
