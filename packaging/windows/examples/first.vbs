' A first document: cscript first.vbs
Dim doc
Set doc = CreateObject("Vellumark.PDF")
doc.Conforming = True
doc.Title = "First page"
If Not doc.Create("first.pdf") Then
  WScript.Echo doc.LastRefusal
  WScript.Quit 1
End If
doc.NewPage 50, 50, 50, 50, 255, 255, 255
doc.SetFont 3, 16, 2, 0                             ' Times, bold
doc.WriteTitle "Hello from Vellumark"
doc.SetFont 3, 12, 1, 0
doc.WriteMultiText "Wrapped, justified and measured without a printer driver.", 2, , True
doc.WriteText "Read more", True, , , "https://example.org/"
doc.SetPosition , 200                               ' x stays
doc.DrawPicture "landscape.jpg", 2, , 5             ' centered, the file as it is
doc.Flush
