# A first document: powershell -ExecutionPolicy Bypass -File first.ps1
$ErrorActionPreference = "Stop"
$missing = [Type]::Missing                            # an omitted argument
$doc = New-Object -ComObject Vellumark.PDF
$doc.Conforming = $true
$doc.Title = "First page"
if (-not $doc.Create("$PWD\first.pdf")) { throw $doc.LastRefusal }
$doc.NewPage(50, 50, 50, 50, 255, 255, 255)
$doc.SetFont(3, 16, 2, 0)                             # Times, bold
[void]$doc.WriteTitle("Hello from Vellumark")
$doc.SetFont(3, 12, 1, 0)
[void]$doc.WriteMultiText("Wrapped, justified and measured without a printer driver.", 2, $missing, $true)
[void]$doc.WriteText("Read more", $true, $missing, $missing, "https://example.org/")
$x = 0; $y = 0
$doc.GetPosition([ref]$x, [ref]$y)                    # results come through [ref]
[void]$doc.WriteText("This line begins at $x, $y.")
$doc.Flush()
if ($doc.LastRefusal) { throw $doc.LastRefusal }
