' SPDX-License-Identifier: MIT
'
' What goes wrong in a script, and what VBScript is told: numbers, source, description, refusals.
Option Explicit

Sub Expect(fact, expected, seen)
  If VarType(expected) = VarType(seen) And expected = seen Then
    WScript.Echo "holds: " & fact
  Else
    WScript.Echo "FAILED " & fact & ": expected " & expected & ", seen " & seen
  End If
End Sub

' After a statement that must have failed.
Sub Raised(fact, number)
  Dim seen
  seen = Err.Number
  Err.Clear
  Expect fact, CLng(number), seen
End Sub

Dim doc, ps, names, x, y, red, green, blue
Set doc = CreateObject("Vellumark.PDF.1")
Set ps = CreateObject("Vellumark.PS")
Set names = CreateObject("Vellumark.Enumerations")  ' no message box
x = 7 : red = "as before"

On Error Resume Next
doc.Paint : Raised "an unknown method", 438
names.Version : Raised "Enumerations has no members", 438
ps.Keywords = "k" : Raised "PS has no keywords", 438
doc.Version = "1.3" : Raised "a read-only property", 438
doc.LostCharacters = "x" : Raised "what a document lost", 438
ps.Compressed = True : Raised "compression of PS", 438
doc.DrawLine 1, 2, 3 : Raised "too few arguments", 450
doc.Flush 1 : Raised "too many arguments", 450
ps.WriteText "a", True, 0, 0, "link" : Raised "PS takes no link", 450
doc.DrawLine , 2, 3, 4 : Raised "a required argument left out", 449
doc.DrawLine "one", 2, 3, 4 : Raised "a word for a number", 13
doc.DrawLine doc, 2, 3, 4 : Raised "an object for a number", 13
doc.DrawLine 40000, 2, 3, 4 : Raised "beyond 16 bits", 6
doc.SetThickness 256 : Raised "beyond a byte", 6
doc.SetThickness -1 : Raised "below a byte", 6
doc.GetPosition x : Raised "too few variables", 450
Expect "a refused call leaves variables as they were", 7, x

doc.GetColor red, green, blue
Expect "no color before Create: source", "Vellumark", Err.Source
Expect "no color before Create: description", "Subscript out of range", Err.Description
Raised "no color before Create: number", 9
Expect "a failed call leaves variables as they were", "as before", red
On Error GoTo 0

Expect "version of PDF", "1.2", doc.Version
Expect "version of PS", "3.0", ps.Version
Expect "output at first", False, ps.Conforming
Expect "compression at first", True, doc.Compressed
doc.PaperSize = 2
Expect "an unknown paper size is kept", CLng(2), doc.PaperSize
Expect "and refused by Create", False, doc.Create("refused.pdf")
Expect "Create says why", "paper size is 2, which is not a member of PaperSizeConstants", doc.LastRefusal
doc.PaperSize = 9
Expect "no such folder", False, doc.Create("missing\refused.pdf")
Expect "it says why", "the file cannot be created", Left(doc.LastRefusal, 26)
Expect "a good paper size", True, doc.Create("errors.pdf")
Expect "nothing was refused", "", doc.LastRefusal
doc.NewPage 50, 50, 50, 50, 255, 255, 255
Expect "a line beyond the margin", False, doc.DrawLine(0, 0, 496, 0)
Expect "it says why", "shape would reach x = 496, but the usable area ends at x = 495", doc.LastRefusal
Expect "no such picture", False, doc.DrawPicture("missing.bmp")
doc.SetColor 10, 20, 30
doc.GetColor red, green, blue
Expect "colors are bytes", vbByte, VarType(red)
Expect "the color", "10 20 30", red & " " & green & " " & blue
doc.GetPosition x, y
Expect "positions are integers", vbInteger, VarType(x)
doc.GetPosition (x), 3 ' by value: what comes back goes nowhere
doc.Flush
WScript.Echo "end of script"
