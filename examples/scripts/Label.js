label.setText("ready"); // what shows, and what the document carries
print(label.text); // -> ready

// The document brings <Label>busy</Label>.
