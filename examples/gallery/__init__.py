"""The widget gallery: its pages, the window around them, and the script that plays with it."""
