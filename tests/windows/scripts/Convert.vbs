Option Explicit
Dim host, plugin
Set host = CreateObject(WScript.Arguments(0))
Set plugin = CreateObject("TarnwickSmPubAcad.cPlugin")
If Not plugin.Initialize(host) Then WScript.Quit 1
plugin.PromptForFileName = False
plugin.OpenInViewer = False
plugin.ConvertToPDF 0
WScript.Echo "converted " & host.ActiveDocument.Name
WScript.Quit 7
