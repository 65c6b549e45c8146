@echo off
rem Registers vellumark.dll for automation clients, where it lies.
rem
rem   register.cmd            for all users of the machine, from a prompt with administrator rights
rem   register.cmd user       for this user, without such rights
rem
rem The exit code is that of the DLL for this Windows; the other width is registered beside it where
rem Windows runs programs of both.
setlocal
set OPTIONS=/s
if /i "%~1"=="user" set OPTIONS=/s /n /i:user
set OWN=%SystemRoot%\System32\regsvr32.exe
if defined PROCESSOR_ARCHITEW6432 set OWN=%SystemRoot%\Sysnative\regsvr32.exe
if defined PROCESSOR_ARCHITEW6432 goto wide
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" goto wide

"%OWN%" %OPTIONS% "%~dp032-bit\vellumark.dll"
if errorlevel 1 goto failed
echo Registered for 32-bit programs.
exit /b 0

:wide
"%OWN%" %OPTIONS% "%~dp064-bit\vellumark.dll"
if errorlevel 1 goto failed
echo Registered for 64-bit programs.
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" goto only
"%SystemRoot%\SysWOW64\regsvr32.exe" %OPTIONS% "%~dp032-bit\vellumark.dll"
if errorlevel 1 goto only
echo Registered for 32-bit programs.
exit /b 0

:only
echo Not registered for 32-bit programs: this Windows does not run them.
exit /b 0

:failed
echo Not registered. For all users it takes a prompt with administrator rights;
echo "register.cmd user" registers for you alone.
exit /b 1
