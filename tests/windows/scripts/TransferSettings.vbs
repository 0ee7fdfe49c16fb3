' The transfer settings: an edit buffer that is written whole.
Dim settings, other, name
Set settings = CreateObject("TarnwickSmPubAcad.cAcadTransferSettings")
On Error Resume Next
settings.TransferTextHlinks = True
settings.TransferDrawingHlinks = False
settings.TransferBlockHlinks = True
settings.TransferVPortHlinks = False
settings.TransferAttributes = True
Expect "TransferTextHlinks", settings.TransferTextHlinks, True
Expect "TransferDrawingHlinks", settings.TransferDrawingHlinks, False
Expect "TransferBlockHlinks", settings.TransferBlockHlinks, True
Expect "TransferVPortHlinks", settings.TransferVPortHlinks, False
Expect "TransferAttributes", settings.TransferAttributes, True
settings.Update
ExpectNoError "Update"
Set other = CreateObject("TarnwickSmPubAcad.cAcadTransferSettings")
Expect "StoredText", other.TransferTextHlinks, True
Expect "StoredDrawing", other.TransferDrawingHlinks, False
Expect "StoredAttributes", other.TransferAttributes, True
settings.Restore
ExpectNoError "Restore"
Expect "EditedStays", settings.TransferAttributes, True
Set other = CreateObject("TarnwickSmPubAcad.cAcadTransferSettings")
Expect "RestoredText", other.TransferTextHlinks, False
Expect "RestoredAttributes", other.TransferAttributes, False

settings.TransferTextHlinks = "perhaps"
ExpectError "Text"
settings.TransferDrawingHlinks = Null
ExpectError "Null"
settings.TransferBlockHlinks = Array()
ExpectError "Array"
Set settings.TransferVPortHlinks = settings
ExpectError "Object"
settings.TransferAttributes = settings
ExpectError "ObjectAsValue"
settings.Update 1
ExpectError "UpdateWith"
settings.Restore 1
ExpectError "RestoreWith"
Finish
