' SPDX-License-Identifier: MIT
'
' Writes vbscript.pdf and vbscript.ps, and more whose names end in _picture, _conforming and _plain,
' with the calls of reference_document.cpp, in VBScript's own ways: variables that receive values,
' omitted arguments, texts and fractions where numbers belong. Chr knows the code page only (Wine's
' VBScript has no ChrW), so that the characters beyond it are read from letters.txt for conforming
' documents, and written as what becomes of them in classic ones.
Option Explicit

Sub Describe(doc, pdf, letters)
  doc.Title = "Pages of a script"
  doc.Author = "Zo" & Chr(235) & " M" & Chr(252) & "ller"
  doc.Creator = letters
  doc.PaperSize = 1
  doc.Rotated = pdf
  If pdf Then
    doc.Keywords = "words"
    doc.Producer = "script"
    If Not doc.Conforming Then doc.Subject = Empty
  End If
End Sub

Sub WriteAlignedTexts(doc)
  Dim alignment, effect
  For alignment = 0 To 3
    For effect = 0 To 2
      doc.SetFont alignment + 1, 10 + effect, effect + 1, effect
      doc.SetColor 60 * alignment, 0, 100 * effect
      doc.WriteText "Alignment " & alignment & ", effect " & effect, True, effect, alignment
    Next
  Next
End Sub

Sub WriteTitles(doc, pdf)
  doc.SetFont 2, 14, 2, 0
  doc.WriteTitle "Disc"
  doc.WriteTitle "Square, centered", 2, 2
  If pdf Then
    doc.WriteTitle "Linked", , , "https://example.org/title"
    doc.WriteText "A link", True, 4, 3, "https://example.org/text"
  End If
End Sub

Sub WriteAtPositions(doc, letters)
  Dim x, y, number, height, style, effect
  doc.SetPosition 30, 300
  doc.SetPosition , 320
  doc.GetPosition x, y
  doc.DrawRectangle x, y, 100, 20
  doc.GetFont number, height, style, effect
  doc.SetFont number + 1, height + 6, style, effect
  doc.WriteText "Stra" & Chr(223) & "e (" & Chr(128) & ", " & Mid(letters, 3, 1) & ")", True
  doc.WriteText Empty
  doc.SetThickness "3"
  doc.DrawLine 1.5, 2.5, "100", 40
End Sub

Sub DrawShapes(doc)
  Dim dashes, row, y
  doc.NewPage 30, 30, 30, 30, 255, 255, 255
  dashes = Array("", "3 2", "8 2 1 2", 1)
  For row = 0 To 3
    y = 120 * row + 60
    doc.SetThickness row + 1
    doc.SetDash dashes(row)
    doc.SetFillStyle row > 1
    doc.SetFillColor 255 - 60 * row, 200, 60 * row
    doc.DrawLine 0, y - 50, 100, y + 50
    doc.DrawRectangle 110, y - 40, 80, 80
    doc.DrawCurve 200, y, 230, y - 50, 280, y + 40
    doc.DrawCircle 330, y, 40
    doc.DrawEllipse 420, y, 45, 30
    doc.DrawArc 500, y, 30, 22.5, 300.25 + row
  Next
End Sub

Sub WriteParagraphs(doc)
  Dim text, number
  doc.SetColor 0, 0, 128
  doc.SetFont 2, 12, 3, 0
  text = "Words"
  For number = 1 To 150
    text = text & " w" & number
  Next
  doc.SetPosition 0, 560
  doc.WriteMultiText text, 3, 0, True
  doc.WriteMultiText text, , 2, , 300
End Sub

Sub WritePages(doc, file, pdf, letters)
  Describe doc, pdf, letters
  If Not doc.Create(file) Then Exit Sub
  doc.NewPage 50, 40, 50, 40, 255, 250, 240
  WriteAlignedTexts doc
  WriteTitles doc, pdf
  WriteAtPositions doc, letters
  DrawShapes doc
  WriteParagraphs doc
  If doc.Conforming Then WriteForEveryReader doc, pdf
  doc.Flush
End Sub

Sub WriteForEveryReader(doc, pdf)
  Dim width, height
  doc.Footer = "{page} of {pages}"
  doc.NewPage 50, 40, 50, 40, 255, 255, 255
  doc.WriteMultiText doc.Creator & " a) (b \" & vbTab & "c"
  width = doc.TextWidth("Lost")
  height = doc.TextHeight("Two lines of a narrow paragraph", 2, 100)
  doc.SetPosition 0, 200
  doc.DrawRectangle 0, 200, width, height
  doc.DrawPicture "landscape_24.bmp"
  If pdf Then
    doc.WriteBookmark "Page " & doc.PageNumber
    doc.SetAnchor "here"
    doc.WriteText doc.LostCharacters, True, 3, , "#here"
    doc.DrawPicture "landscape.jpg", 3, , 5
    doc.Subject = doc.LostCharacters
  Else
    doc.WriteText doc.LostCharacters, True, 3
    doc.DrawPicture "landscape.jpg", 3, 5
  End If
End Sub

Function Letters()
  Letters = CreateObject("Scripting.FileSystemObject").OpenTextFile("letters.txt", 1, False, -1).ReadAll
End Function

Sub WritePictures(doc, file, pdf)
  If Not doc.Create(file) Then Exit Sub
  doc.NewPage 50, 40, 50, 40, 255, 250, 240
  doc.DrawPicture "landscape_24.bmp"
  doc.DrawPicture "landscape_4.bmp"
  doc.SetPictureDimensions 60, 200
  If pdf Then
    doc.DrawPicture "landscape.gif", 2, "https://example.org/picture", 4
    doc.DrawPicture "landscape.jpg", 3, , 2
  Else
    doc.DrawPicture "landscape.gif", 2, 4
    doc.DrawPicture "landscape.jpg", 3, 2
  End If
  doc.Flush
End Sub

Sub WriteConforming(doc, kind)
  Dim pdf
  pdf = kind = "pdf"
  doc.Conforming = True
  WritePages doc, "vbscript_conforming." & kind, pdf, Letters
  If pdf Then
    doc.Compressed = False
    WritePages doc, "vbscript_plain.pdf", pdf, Letters
  End If
End Sub

Dim kind, doc
For Each kind In Array("pdf", "ps")
  Set doc = CreateObject("Vellumark." & kind)
  WritePages doc, "vbscript." & kind, kind = "pdf", "? ? ? " & Chr(128)
  WritePictures doc, "vbscript_picture." & kind, kind = "pdf"
  WriteConforming doc, kind
Next
WScript.Echo "end of script"
