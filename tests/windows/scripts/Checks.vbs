' What every script of a test begins with: each check writes a line, and the last line tells how many failed.
Option Explicit
Dim failures, checks
failures = 0
checks = 0

Sub Report(name, passed, got)
    checks = checks + 1
    If Not passed Then
        failures = failures + 1
        WScript.Echo "FAILED " & name & ": " & got
    End If
End Sub

Sub Expect(name, got, wanted)
    Report name, (got = wanted) And (VarType(got) = VarType(wanted)), CStr(got) & " of type " & VarType(got)
End Sub

' The statement just run was to end in an automation error, which is taken back.
Sub ExpectError(name)
    Report name, Err.Number <> 0, "no error"
    Err.Clear
End Sub

' The statements just run were to end without one.
Sub ExpectNoError(name)
    Report name, Err.Number = 0, "error " & Err.Number & " " & Err.Description
    Err.Clear
End Sub

Sub Finish()
    WScript.Echo "DONE: " & checks & " checks, " & failures & " failed"
    WScript.Quit failures
End Sub
