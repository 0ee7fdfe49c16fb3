' A native document that wraps no drawing: every member answers.
Dim document, none
Set document = CreateObject("TarnwickSmPubAcad.cNativeDoc")
Set none = Nothing
On Error Resume Next
Expect "Index", document.Index, CInt(-1)
Report "CustomPageSetup", document.CustomPageSetup Is Nothing, "an object"
Expect "PageSetupSelected", document.PageSetupSelected, CLng(0)
document.PageSetupSelected = 1
Expect "PageSetupSelectedStays", document.PageSetupSelected, CLng(0)
Expect "FullName", document.FullName, ""
Expect "IsActive", document.IsActive, False
Expect "Name", document.Name, ""
Expect "SheetCount", document.SheetCount, CLng(0)
Expect "WindowState", document.WindowState, CLng(0)
document.WindowState = 3
Expect "GetSheetName", document.GetSheetName(0), Empty
Expect "ExeCmd", document.ExeCmd("AUDIT", ""), Empty
Expect "AddToPubDoc", document.AddToPubDoc(Nothing, "Sheet 1", True, 1200, ""), CLng(-4)
Expect "AddToPubDocVariable", document.AddToPubDoc(none, "Sheet 1", True, 1200, ""), CLng(-4)
Expect "InitOpenDoc", document.InitOpenDoc(1, Nothing, Nothing, "C:\none.dwg"), False
Expect "InitGetDocByName", document.InitGetDocByName(1, Nothing, Nothing, "C:\none.dwg"), False
document.ReleaseDoc
document.CloseDoc False
ExpectNoError "RightArguments"

document.InitGetDoc 1, Nothing, Nothing
ExpectError "InitGetDocTooFew"
document.InitGetDoc 40000, Nothing, Nothing, Nothing
ExpectError "InitGetDocOverflow"
document.InitGetDoc 1, 5, Nothing, Nothing
ExpectError "InitGetDocNumber"
document.InitOpenDoc 1, Nothing, Nothing, Null
ExpectError "InitOpenDocNull"
document.InitGetDocByName 1, Nothing, "owner", "x"
ExpectError "InitGetDocByNameText"
document.AddToPubDoc 5, "x", True, 1, ""
ExpectError "AddToPubDocNumber"
document.AddToPubDoc Nothing, "x", True, "many", ""
ExpectError "AddToPubDocText"
document.CloseDoc "perhaps"
ExpectError "CloseDocText"
document.ExeCmd "AUDIT"
ExpectError "ExeCmdTooFew"
document.ReleaseDoc 1
ExpectError "ReleaseDocWith"
document.GetSheetName "first"
ExpectError "GetSheetNameText"
document.Index = 5
ExpectError "IndexIsReadOnly"
document.PageSetupSelected = "custom"
ExpectError "PageSetupSelectedText"
document.WindowState = Null
ExpectError "WindowStateNull"
document.SheetCount = 1
ExpectError "SheetCountIsReadOnly"

Expect "InitGetDoc", document.InitGetDoc(3, Nothing, Nothing, Nothing), False
Expect "IndexAfterwards", document.Index, CInt(3)
Expect "InitGetDocTwice", document.InitGetDoc(4, Nothing, Nothing, Nothing), False
Expect "IndexStays", document.Index, CInt(3)
ExpectNoError "AtTheEnd"
Finish
