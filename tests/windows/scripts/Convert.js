var host = new ActiveXObject(WScript.Arguments(0));
var plugin = new ActiveXObject("TarnwickSmPubAcad.cPlugin");
if (!plugin.Initialize(host)) WScript.Quit(1);
plugin.PromptForFileName = false;
plugin.OpenInViewer = false;
plugin.ConvertToPDF(0);
WScript.Echo("converted " + host.ActiveDocument.Name);
WScript.Quit(7);
