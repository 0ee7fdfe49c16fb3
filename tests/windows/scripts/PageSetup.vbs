' The page setup object, bound to the user's own page setup.
Dim setup, other, none
Set setup = CreateObject("TarnwickSmPubAcad.cAcadPageSetup")
On Error Resume Next
Expect "UnknownSource", setup.Initialize(7, Nothing), False
Expect "DrawingWithoutOne", setup.Initialize(1, Nothing), False
Expect "Global", setup.Initialize(2, Nothing), True
Set none = Nothing
Expect "GlobalWithVariable", setup.Initialize(2, none), True
Expect "CanonicalMediaName", setup.CanonicalMediaName, "ANSI_A_(11.00_x_8.50_Inches)"
Expect "LocaleMedianame", setup.LocaleMedianame, ""
Expect "PaperWidth", setup.PaperWidth, CDbl(279.4)
Expect "PaperHeight", setup.PaperHeight, CDbl(215.9)
Expect "PlotRotation", setup.PlotRotation, CLng(0)
Expect "PlotType", setup.PlotType, CLng(1)
Expect "CenterPlot", setup.CenterPlot, True
Expect "PlotOriginX", setup.PlotOriginX, CDbl(0)
Expect "PlotOriginY", setup.PlotOriginY, CDbl(0)
Expect "UseStandardScale", setup.UseStandardScale, True
Expect "StandardScale", setup.StandardScale, CLng(0)
Expect "ScaleNumer", setup.ScaleNumer, CDbl(1)
Expect "ScaleDenom", setup.ScaleDenom, CDbl(1)
Expect "PaperUnits", setup.PaperUnits, CLng(0)
Expect "PlotWithPlotStyles", setup.PlotWithPlotStyles, True
Expect "StyleSheet", setup.StyleSheet, ""
Expect "ShowPlotStyles", setup.ShowPlotStyles, True
Expect "PlotHidden", setup.PlotHidden, False
Expect "PlotViewportsFirst", setup.PlotViewportsFirst, True
Expect "PlotWithLineweights", setup.PlotWithLineweights, True
Expect "ScaleLineWeights", setup.ScaleLineWeights, False
Expect "PlotViewportBorders", setup.PlotViewportBorders, False
Expect "WinLowerLeftX", setup.WinLowerLeftX, CDbl(0)
Expect "WinLowerLeftY", setup.WinLowerLeftY, CDbl(0)
Expect "WinUpperRightX", setup.WinUpperRightX, CDbl(0)
Expect "WinUpperRightY", setup.WinUpperRightY, CDbl(0)
Expect "ViewToPlot", setup.ViewToPlot, ""

setup.SetPlotType 4
Expect "SetPlotType", setup.PlotType, CLng(4)
setup.SetWindowToPlot 1, 2, 30.5, 40
Expect "SetWindowLeft", setup.WinLowerLeftX, CDbl(1)
Expect "SetWindowBottom", setup.WinLowerLeftY, CDbl(2)
Expect "SetWindowRight", setup.WinUpperRightX, CDbl(30.5)
Expect "SetWindowTop", setup.WinUpperRightY, CDbl(40)
setup.SetPlotStyle "Office.ctb"
Expect "SetPlotStyle", setup.StyleSheet, "Office.ctb"
setup.SetViewToPlot "Plan"
Expect "SetViewToPlot", setup.ViewToPlot, "Plan"
setup.SetPlotOffset False, 1, 2, 0
Expect "SetPlotOffsetCenter", setup.CenterPlot, False
Expect "SetPlotOffsetX", setup.PlotOriginX, CDbl(25.4)
Expect "SetPlotOffsetY", setup.PlotOriginY, CDbl(50.8)
setup.SetCustomScale 1, 50
Expect "SetCustomScaleNumer", setup.ScaleNumer, CDbl(1)
Expect "SetCustomScaleDenom", setup.ScaleDenom, CDbl(50)
Expect "SetCustomScaleUse", setup.UseStandardScale, False
Expect "SetCustomScaleUnitsLeftOut", setup.PaperUnits, CLng(0)
setup.SetCustomScale 1, 20, 1
Expect "SetCustomScaleUnits", setup.PaperUnits, CLng(1)
setup.SetCustomScale 1, 20, 2
Expect "SetCustomScalePixels", setup.PaperUnits, CLng(0)
setup.SetStandardScale 16
Expect "SetStandardScale", setup.StandardScale, CLng(16)
Expect "SetStandardScaleUse", setup.UseStandardScale, True
setup.SetPlotOptions True, False, False, False, True
Expect "OptionsScale", setup.ScaleLineWeights, True
Expect "OptionsWeights", setup.PlotWithLineweights, False
Expect "OptionsStyles", setup.PlotWithPlotStyles, False
Expect "OptionsViewports", setup.PlotViewportsFirst, False
Expect "OptionsHidden", setup.PlotHidden, True
setup.SetStandardMedia 0
Report "SetStandardMedia", setup.PaperWidth > 0, setup.PaperWidth
setup.SetCustomMedia 500, 300, 1
Expect "SetCustomMediaWidth", setup.PaperWidth, CDbl(500)
Expect "SetCustomMediaHeight", setup.PaperHeight, CDbl(300)
ExpectNoError "RightArguments"

Set other = CreateObject("TarnwickSmPubAcad.cAcadPageSetup")
other.CopyFrom setup
Expect "CopyFrom", other.StyleSheet, "Office.ctb"
Expect "CopyFromWidth", other.PaperWidth, CDbl(500)
setup.Update
Expect "ReadBack", other.Initialize(2, Nothing), True
Expect "ReadBackStyle", other.StyleSheet, "Office.ctb"
setup.SetPlotStyle "Other.ctb"
setup.Restore
Expect "Restore", setup.StyleSheet, ""
ExpectNoError "MoreRightArguments"

setup.Initialize "x", Nothing
ExpectError "InitializeText"
setup.Initialize 2, 5
ExpectError "InitializeNumber"
setup.Initialize 2
ExpectError "InitializeTooFew"
setup.CopyFrom Nothing
ExpectError "CopyFromNothing"
setup.CopyFrom CreateObject("Scripting.Dictionary")
ExpectError "CopyFromOther"
setup.SetStandardMedia "x"
ExpectError "SetStandardMediaText"
setup.SetCustomMedia 1, "x", 0
ExpectError "SetCustomMediaText"
setup.SetPlotType Null
ExpectError "SetPlotTypeNull"
setup.SetWindowToPlot 1, 2, 3
ExpectError "SetWindowTooFew"
setup.SetPlotStyle Null
ExpectError "SetPlotStyleNull"
setup.SetViewToPlot Array(1)
ExpectError "SetViewArray"
setup.SetPlotOffset "perhaps", 1, 2, 0
ExpectError "SetPlotOffsetText"
setup.SetStandardScale 1e20
ExpectError "SetStandardScaleOverflow"
setup.SetCustomScale 1, 2, "x"
ExpectError "SetCustomScaleText"
setup.SetCustomScale 1, 2, 3, 4
ExpectError "SetCustomScaleTooMany"
setup.SetPlotOptions True, True, True, True, "perhaps"
ExpectError "SetPlotOptionsText"
setup.PaperWidth = 5
ExpectError "PaperWidthIsReadOnly"
setup.SetStandardMedia -1
ExpectNoError "SetStandardMediaOutside"
setup.SetStandardMedia 28
ExpectNoError "SetStandardMediaBehind"
Finish
