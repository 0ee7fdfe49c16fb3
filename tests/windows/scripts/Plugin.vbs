' The plug-in object: its settings, and its operations without a host.
Dim plugin, name
Set plugin = CreateObject("TarnwickSmPubAcad.cPlugin")
Expect "Version", plugin.Version, "0.1.0"
Expect "VersionByCall", plugin.Version(), "0.1.0"

On Error Resume Next
plugin.PromptForFileName = False
Expect "PromptForFileName", plugin.PromptForFileName, False
plugin.PromptForFileName = True
Expect "PromptForFileName", plugin.PromptForFileName, True
plugin.DeletePs = False
Expect "DeletePs", plugin.DeletePs, False
plugin.OpenInViewer = 0
Expect "OpenInViewer", plugin.OpenInViewer, False
plugin.OpenInViewer = "True"
Expect "OpenInViewerFromText", plugin.OpenInViewer, True
plugin.WhatToPlot = 1
Expect "WhatToPlot", plugin.WhatToPlot, CLng(1)
plugin.WhatToPlot = 5
Expect "WhatToPlotTooLarge", plugin.WhatToPlot, CLng(0)
plugin.WhatToPlot = "1"
Expect "WhatToPlotFromText", plugin.WhatToPlot, CLng(1)
plugin.Optimization = 1
Expect "Optimization", plugin.Optimization, CLng(1)
plugin.JobOptionsFile = "Screen"
Expect "JobOptionsFileStays", plugin.JobOptionsFile, "Graphics [600 dpi]"
Expect "OptimizationTakesItsText", plugin.Optimization, CLng(0)
ExpectNoError "RightArguments"

plugin.WhatToPlot = "many"
ExpectError "WhatToPlotText"
plugin.WhatToPlot = 1e100
ExpectError "WhatToPlotOverflow"
plugin.WhatToPlot = Null
ExpectError "WhatToPlotNull"
plugin.WhatToPlot = Array(1, 2)
ExpectError "WhatToPlotArray"
plugin.DeletePs = "perhaps"
ExpectError "DeletePsText"
plugin.JobOptionsFile = Null
ExpectError "JobOptionsFileNull"
Set plugin.OpenInViewer = plugin
ExpectError "OpenInViewerObject"
plugin.Version = "9.9.9"
ExpectError "VersionIsReadOnly"
plugin.NoSuchMember
ExpectError "NoSuchMember"
Expect "WhatToPlotUnchanged", plugin.WhatToPlot, CLng(1)

plugin.Initialize
ExpectError "InitializeWithout"
plugin.Initialize 5
ExpectError "InitializeNumber"
plugin.Initialize plugin, plugin
ExpectError "InitializeTwo"
Expect "InitializeNothing", plugin.Initialize(Nothing), False
Expect "InitializeOther", plugin.Initialize(CreateObject("Scripting.Dictionary")), False
plugin.ConvertToPDF "now"
ExpectError "ConvertText"
plugin.ConvertToPDF
ExpectError "ConvertWithout"
plugin.ShowSettings 1
ExpectError "ShowSettingsTooFew"
plugin.ShowSettings 1, 2, "x"
ExpectError "ShowSettingsText"
plugin.ShowLog 1
ExpectError "ShowLogWith"

' Each of these tells the user what is missing.
plugin.ConvertToPDF 0
ExpectNoError "ConvertWithoutHost"
Expect "ShowSettingsWithoutHost", plugin.ShowSettings(0, 1, 2), False
plugin.ShowLog
ExpectNoError "ShowLogWithoutLog"
Finish
