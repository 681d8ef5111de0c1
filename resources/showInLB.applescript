-- Selects the template with the identifier in Lotbook.
tell application "Lotbook"
	activate
	select template "%@"
end tell
