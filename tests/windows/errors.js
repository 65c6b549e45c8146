// SPDX-License-Identifier: MIT
//
// What goes wrong in a script, and what JScript is told: the language's number of the error, or from
// Wine the last digits of automation's own code.

function expect(fact, expected, seen) {
  if (expected === seen) {
    WScript.Echo("holds: " + fact);
  } else {
    WScript.Echo("FAILED " + fact + ": expected " + expected + ", seen " + seen);
  }
}

function raised(fact, number, code, statement) {
  var seen = 0;
  try {
    statement();
  } catch (error) {
    seen = error.number & 0xFFFF;
  }
  expect(fact, number, seen == code ? number : seen);
}

var doc = new ActiveXObject("Vellumark.PDF");
raised("an unknown method", 438, 438, function () { doc.Paint(); });
raised("a read-only property", 438, 3, function () { doc.Version = "1.3"; });
raised("too few arguments", 450, 14, function () { doc.DrawLine(1, 2, 3); });
raised("too many arguments", 450, 14, function () { doc.Flush(1); });
raised("a word for a number", 13, 5, function () { doc.DrawLine("one", 2, 3, 4); });
raised("beyond 16 bits", 6, 10, function () { doc.DrawLine(40000, 2, 3, 4); });
raised("below a byte", 6, 10, function () { doc.SetThickness(-1); });
raised("no color before Create", 9, 9, function () { doc.GetColor(0, 0, 0); });
expect("names in any case", "1.2", doc.version);
doc.PaperSize = 2;
expect("an unknown paper size", false, doc.Create("refused.pdf"));
expect("Create says why", "paper size is 2, which is not a member of PaperSizeConstants",
       doc.LastRefusal);
WScript.Echo("end of script");
