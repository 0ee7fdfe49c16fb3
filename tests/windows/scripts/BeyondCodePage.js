// Folders and names that the code page of the tests, 1252, can't hold: "?" and "L" would stand in their place.
var user = "C:\\Users\\" + String.fromCharCode(0x56FD) + "\\Plotters", product = "\\Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD\\";
var shell = new ActiveXObject("WScript.Shell"), host = new ActiveXObject(WScript.Arguments(0));
host.Preferences.Files.PrinterConfigPath = user;
shell.RegWrite("HKEY_LOCAL_MACHINE" + product + "SettingsFolder", "C:\\" + String.fromCharCode(0x141) + "ukasz");
shell.RegWrite("HKEY_CURRENT_USER" + product + "JobOptionsFile", String.fromCharCode(0x141) + "\u00F3d\u017A");
var plugin = new ActiveXObject("TarnwickSmPubAcad.cPlugin");
if (!plugin.Initialize(host)) WScript.Quit(1);
plugin.PromptForFileName = false;
plugin.OpenInViewer = false;
plugin.ConvertToPDF(0);
WScript.Echo("plotters " + (host.Preferences.Files.PrinterConfigPath == user) + ", job options " + escape(plugin.JobOptionsFile));
WScript.Quit(7);
