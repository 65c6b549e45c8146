@echo off
rem Takes back what register.cmd did, with the same word behind it: nothing, or "user".
setlocal
set OPTIONS=/s /u
if /i "%~1"=="user" set OPTIONS=/s /u /n /i:user
set OWN=%SystemRoot%\System32\regsvr32.exe
if defined PROCESSOR_ARCHITEW6432 set OWN=%SystemRoot%\Sysnative\regsvr32.exe
if defined PROCESSOR_ARCHITEW6432 goto wide
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" goto wide

"%OWN%" %OPTIONS% "%~dp032-bit\vellumark.dll"
if errorlevel 1 goto failed
goto done

:wide
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" "%SystemRoot%\SysWOW64\regsvr32.exe" %OPTIONS% "%~dp032-bit\vellumark.dll"
"%OWN%" %OPTIONS% "%~dp064-bit\vellumark.dll"
if errorlevel 1 goto failed

:done
echo No longer registered.
exit /b 0

:failed
echo Still registered. For all users it takes a prompt with administrator rights;
echo "unregister.cmd user" takes back what was registered for you alone.
exit /b 1
