<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Without texts: it says that English is there, so that nobody who prefers it is given his second language. -->
<TS version="2.1" language="en"></TS>
