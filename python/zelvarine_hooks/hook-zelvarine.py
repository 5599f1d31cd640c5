"""What PyInstaller cannot see in a native module: its imports."""

hiddenimports = ["json", "math", "os.path", "sys", "threading", "time"]
