-- Gives the listing that is selected in Lotbook a property's new value; returns the former one.
tell application "Lotbook"
	set formerValue to %@ of selected listing
	set %@ of selected listing to "%@"
	return formerValue
end tell
