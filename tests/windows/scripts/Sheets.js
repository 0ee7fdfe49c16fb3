// What a front end does with one drawing, sheet by sheet.
var host = new ActiveXObject(WScript.Arguments(0)), pdf = new ActiveXObject("TwSmPubLib.PubDoc");
var said = [], released = [];
var list = { ReleaseEntry: function (index) { released.push(index); } };
var owner = { Documents: function () { return list; } };
var drawing = new ActiveXObject("TarnwickSmPubAcad.cNativeDoc");
said.push(drawing.InitGetDoc(2, host, owner, host.ActiveDocument), drawing.InitGetDoc(3, host, owner, host.ActiveDocument));
said.push(drawing.Index, drawing.Name, drawing.FullName, drawing.IsActive, drawing.SheetCount);
for (var i = 0; i < drawing.SheetCount; ++i)
    said.push(drawing.GetSheetName(i), drawing.AddToPubDoc(pdf, drawing.GetSheetName(i), true, 1200, "Graphics [600 dpi]"));
drawing.PageSetupSelected = 1;
said.push(drawing.PageSetupSelected, drawing.CustomPageSetup.PaperUnits);
drawing.CloseDoc(false);
WScript.Echo(said.join("|") + " released " + released.join("|"));
WScript.Quit(7);
