var host = new ActiveXObject("SmTestHost.Application");
var plugin = new ActiveXObject("TarnwickSmPubAcad.cPlugin");
if (!plugin.Initialize(host)) WScript.Quit(1);
plugin.PromptForFileName = false;
plugin.OpenInViewer = false;
plugin.ConvertToPDF(0);
WScript.Echo("converted " + host.ActiveDocument.Name);
WScript.Quit(7);
