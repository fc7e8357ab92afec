@echo off
rem Runs all tests of qptools on this machine and writes check-report.txt. Nothing is installed; no rights are needed.
setlocal
if not exist "%~dp0bin\qptools_check.exe" (
    echo The kit is not complete. Unpack the whole zip file into a folder first, and start check.cmd there.
    set code=2
    goto end
)
"%~dp0bin\qptools_check.exe" %*
set code=%errorlevel%
:end
rem The window stays open, unless a program started this.
if not defined QPTOOLS_CHECK_UNATTENDED pause
exit /b %code%
