<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>LSMDesignEditorViewController</name>
    <message>
        <source>Goes to a layout&apos;s place in the HTML</source>
        <translation>Geht zur Stelle eines Layouts im HTML</translation>
    </message>
    <message>
        <source>&amp;Identifier:</source>
        <translation>&amp;Kennung:</translation>
    </message>
    <message>
        <source>Inserts what Lotbook replaces by the listing&apos;s data</source>
        <translation>Fügt ein, was Lotbook durch die Angaben des Angebots ersetzt</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Paid design, sold through the store</source>
        <translation>&amp;Kostenpflichtiges Design, über den Store verkauft</translation>
    </message>
    <message>
        <source>Choose Picture…</source>
        <translation>Bild wählen …</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Keywords:</source>
        <translation>Stichwörter:</translation>
    </message>
    <message>
        <source>Layouts:</source>
        <translation>Layouts:</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Ort:</translation>
    </message>
    <message>
        <source>New Design</source>
        <translation>Neues Design</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>Im Browser öffnen</translation>
    </message>
    <message>
        <source>Parts of the design</source>
        <translation>Teile des Designs</translation>
    </message>
    <message>
        <source>Preview of the design</source>
        <translation>Vorschau des Designs</translation>
    </message>
    <message>
        <source>Properties of the design</source>
        <translation>Eigenschaften des Designs</translation>
    </message>
    <message>
        <source>Released:</source>
        <translation>Veröffentlicht:</translation>
    </message>
    <message>
        <source>Samples of the layouts</source>
        <translation>Beispiele der Layouts</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>LSMMainWindowController</name>
    <message>
        <source>&amp;About The Layoutsmith</source>
        <translation>Ü&amp;ber Layoutsmith</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>E&amp;rscheinungsbild</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatisch</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Customize Toolbar…</source>
        <translation>Symbolleiste an&amp;passen …</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Design</source>
        <translation>De&amp;sign</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>V&amp;ollbild</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;HTML</source>
        <translation>&amp;HTML</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;New Design</source>
        <translation>&amp;Neues Design</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Prin&amp;t HTML…</source>
        <translation>HTML druc&amp;ken …</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>&amp;Eigenschaften</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Reload Preview</source>
        <translation>Vorschau neu &amp;laden</translation>
    </message>
    <message>
        <source>Rena&amp;me Design</source>
        <translation>Design &amp;umbenennen</translation>
    </message>
    <message>
        <source>&amp;Revert To Saved</source>
        <translation>Auf gesicherte &amp;Fassung zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Samples</source>
        <translation>&amp;Beispiele</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>&amp;Search Designs</source>
        <translation>Designs &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Show in Lotbook</source>
        <translation>In Lotbook &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>Nach &amp;Updates suchen …</translation>
    </message>
    <message>
        <source>Choose &amp;Picture…</source>
        <translation>&amp;Bild wählen …</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>De&amp;lete Design…</source>
        <translation>Design &amp;löschen …</translation>
    </message>
    <message>
        <source>Designs</source>
        <translation>Designs</translation>
    </message>
    <message>
        <source>Hide Toolbar</source>
        <translation>Symbolleiste ausblenden</translation>
    </message>
    <message>
        <source>Preview &amp;Below the HTML</source>
        <translation>Vorschau &amp;unter dem HTML</translation>
    </message>
    <message>
        <source>R&amp;eveal in Finder</source>
        <translation>Im Dateimanager &amp;zeigen</translation>
    </message>
    <message>
        <source>S&amp;tore</source>
        <translation>S&amp;tore</translation>
    </message>
    <message>
        <source>Save &amp;All</source>
        <translation>&amp;Alle sichern</translation>
    </message>
    <message>
        <source>Search designs</source>
        <translation>Designs suchen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Show Pre&amp;view</source>
        <translation>&amp;Vorschau zeigen</translation>
    </message>
    <message>
        <source>The Layoutsmith</source>
        <translation>Layoutsmith</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Schließen (Esc)</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find and replace</source>
        <translation>Suchen und Ersetzen</translation>
    </message>
    <message>
        <source>Find the next match (F3)</source>
        <translation>Nächsten Treffer suchen (F3)</translation>
    </message>
    <message>
        <source>Find the previous match (Shift+F3)</source>
        <translation>Vorigen Treffer suchen (Umschalt+F3)</translation>
    </message>
    <message>
        <source>Match upper and lower case</source>
        <translation>Groß- und Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Match whole words</source>
        <translation>Nur ganze Wörter</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Nächster Treffer</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Voriger Treffer</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Alle ersetzen</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source>%@ (At character %d.)</source>
        <translation>%@ (Bei Zeichen %d.)</translation>
    </message>
    <message>
        <source>%@ (edited)</source>
        <translation>%@ (bearbeitet)</translation>
    </message>
    <message>
        <source>%@ cannot be coloured: %@</source>
        <translation>%@ lässt sich nicht einfärben: %@</translation>
    </message>
    <message>
        <source>%@ designs</source>
        <translation>%@ Designs</translation>
    </message>
    <message>
        <source>%@ must be %@.</source>
        <translation>%@ muss %@ sein.</translation>
    </message>
    <message>
        <source>%@ of %@ designs</source>
        <translation>%@ von %@ Designs</translation>
    </message>
    <message>
        <source>%@ stands beside it: its conversion was cut short, or these are two designs. The old file still loads.</source>
        <translation>%@ steht daneben: Seine Umwandlung wurde unterbrochen, oder dies sind zwei Designs. Die alte Datei wird weiterhin geladen.</translation>
    </message>
    <message>
        <source>%ld bytes</source>
        <translation>%ld Byte</translation>
    </message>
    <message>
        <source>%ld found</source>
        <translation>%ld gefunden</translation>
    </message>
    <message>
        <source>%ld of %ld</source>
        <translation>%ld von %ld</translation>
    </message>
    <message>
        <source>%ld replaced</source>
        <translation>%ld ersetzt</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>No design matches “%@”.</source>
        <translation>Kein Design passt zu „%@“.</translation>
    </message>
    <message>
        <source>Placeholders</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>1 design</source>
        <translation>1 Design</translation>
    </message>
    <message>
        <source>A backslash stands before something that has no meaning with it.</source>
        <translation>Ein Backslash steht vor etwas, das mit ihm keine Bedeutung hat.</translation>
    </message>
    <message>
        <source>A closing bracket is missing.</source>
        <translation>Eine schließende eckige Klammer fehlt.</translation>
    </message>
    <message>
        <source>a date</source>
        <translation>ein Datum</translation>
    </message>
    <message>
        <source>A design must be a folder, and this is none.</source>
        <translation>Ein Design muss ein Ordner sein; dies ist keiner.</translation>
    </message>
    <message>
        <source>a dictionary</source>
        <translation>ein Wörterbuch</translation>
    </message>
    <message>
        <source>A parenthesis is missing or stands alone.</source>
        <translation>Eine Klammer fehlt oder steht allein.</translation>
    </message>
    <message>
        <source>A range of characters ends before it begins.</source>
        <translation>Ein Zeichenbereich endet, bevor er beginnt.</translation>
    </message>
    <message>
        <source>A save that was cut short has left this file; nothing uses it.</source>
        <translation>Ein abgebrochenes Sichern hat diese Datei hinterlassen; nichts verwendet sie.</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>eine Zeichenkette</translation>
    </message>
    <message>
        <source>A template with the same identifier exists
</source>
        <translation>Eine Vorlage mit derselben Kennung ist bereits vorhanden
</translation>
    </message>
    <message>
        <source>A template with the same identifier exists: %@</source>
        <translation>Eine Vorlage mit derselben Kennung ist bereits vorhanden: %@</translation>
    </message>
    <message>
        <source>A template with the same name exists
</source>
        <translation>Eine Vorlage mit demselben Namen ist bereits vorhanden
</translation>
    </message>
    <message>
        <source>A template with the same name exists: %@</source>
        <translation>Eine Vorlage mit demselben Namen ist bereits vorhanden: %@</translation>
    </message>
    <message>
        <source>About The Layoutsmith</source>
        <translation>Über Layoutsmith</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>an array of dictionaries</source>
        <translation>eine Liste von Wörterbüchern</translation>
    </message>
    <message>
        <source>an array of strings</source>
        <translation>eine Liste von Zeichenketten</translation>
    </message>
    <message>
        <source>An old design must be a file, and this is none.</source>
        <translation>Ein altes Design muss eine Datei sein; dies ist keine.</translation>
    </message>
    <message>
        <source>Are you sure you want to save the Template '%@'? The following issues were found:

</source>
        <translation>Soll die Vorlage „%@“ wirklich gesichert werden? Folgendes ist aufgefallen:

</translation>
    </message>
    <message>
        <source>Available items</source>
        <translation>Verfügbare Elemente</translation>
    </message>
    <message>
        <source>Built-In Designs</source>
        <translation>Mitgelieferte Designs</translation>
    </message>
    <message>
        <source>Built-in designs are read-only. Duplicate this one to change it.</source>
        <translation>Mitgelieferte Designs sind schreibgeschützt. Zum Ändern dieses Design duplizieren.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Capitalize</source>
        <translation>Großer Anfangsbuchstabe</translation>
    </message>
    <message>
        <source>CFBundleName is missing; the folder's name stands in.</source>
        <translation>CFBundleName fehlt; der Name des Ordners tritt an seine Stelle.</translation>
    </message>
    <message>
        <source>Change Color</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Change Color…</source>
        <translation>Farbe ändern …</translation>
    </message>
    <message>
        <source>Choose a Picture</source>
        <translation>Bild wählen</translation>
    </message>
    <message>
        <source>Close Tag</source>
        <translation>Tag schließen</translation>
    </message>
    <message>
        <source>Comment or Uncomment</source>
        <translation>Kommentar ein oder aus</translation>
    </message>
    <message>
        <source>Completions</source>
        <translation>Vervollständigungen</translation>
    </message>
    <message>
        <source>Convert</source>
        <translation>Umwandeln</translation>
    </message>
    <message>
        <source>Convert Spaces to Tabs</source>
        <translation>Leerzeichen in Tabs umwandeln</translation>
    </message>
    <message>
        <source>Convert Spaces to Tabs…</source>
        <translation>Leerzeichen in Tabs umwandeln …</translation>
    </message>
    <message>
        <source>Convert Tabs to Spaces</source>
        <translation>Tabs in Leerzeichen umwandeln</translation>
    </message>
    <message>
        <source>Convert Tabs to Spaces…</source>
        <translation>Tabs in Leerzeichen umwandeln …</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Create a new design.</source>
        <translation>Ein neues Design anlegen.</translation>
    </message>
    <message>
        <source>Custom Designs</source>
        <translation>Eigene Designs</translation>
    </message>
    <message>
        <source>Customize Toolbar</source>
        <translation>Symbolleiste anpassen</translation>
    </message>
    <message>
        <source>Customize Toolbar…</source>
        <translation>Symbolleiste anpassen …</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete Design</source>
        <translation>Design löschen</translation>
    </message>
    <message>
        <source>Deletes selected design.</source>
        <translation>Löscht das ausgewählte Design.</translation>
    </message>
    <message>
        <source>Design</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Do you want to delete the selected design?</source>
        <translation>Soll das ausgewählte Design gelöscht werden?</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Don’t show this message again</source>
        <translation>Diesen Hinweis nicht mehr zeigen</translation>
    </message>
    <message>
        <source>Drag your favourite items into the toolbar, and others out of it.</source>
        <translation>Bevorzugte Elemente in die Symbolleiste ziehen, andere aus ihr heraus.</translation>
    </message>
    <message>
        <source>Drop a picture here</source>
        <translation>Bild hier ablegen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Duplicates selected design.</source>
        <translation>Dupliziert das ausgewählte Design.</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Failed to save the selected design template.</source>
        <translation>Die ausgewählte Designvorlage konnte nicht gesichert werden.</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Rückwärts weitersuchen</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Suchen …</translation>
    </message>
    <message>
        <source>Flexible Space</source>
        <translation>Flexibler Abstand</translation>
    </message>
    <message>
        <source>Fold or Unfold</source>
        <translation>Auf- oder zuklappen</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Los</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>Gehe zu Zeile</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Go to Line…</source>
        <translation>Gehe zu Zeile …</translation>
    </message>
    <message>
        <source>Hide Toolbar</source>
        <translation>Symbolleiste ausblenden</translation>
    </message>
    <message>
        <source>HTML</source>
        <translation>HTML</translation>
    </message>
    <message>
        <source>HTML of the design</source>
        <translation>HTML des Designs</translation>
    </message>
    <message>
        <source>Icon and Text</source>
        <translation>Symbol und Text</translation>
    </message>
    <message>
        <source>Icon Only</source>
        <translation>Nur Symbol</translation>
    </message>
    <message>
        <source>Items in the toolbar</source>
        <translation>Elemente in der Symbolleiste</translation>
    </message>
    <message>
        <source>Line number:</source>
        <translation>Zeilennummer:</translation>
    </message>
    <message>
        <source>Make Lowercase</source>
        <translation>In Kleinbuchstaben</translation>
    </message>
    <message>
        <source>Make Uppercase</source>
        <translation>In Großbuchstaben</translation>
    </message>
    <message>
        <source>Move Left</source>
        <translation>Nach links</translation>
    </message>
    <message>
        <source>Move Right</source>
        <translation>Nach rechts</translation>
    </message>
    <message>
        <source>New Design</source>
        <translation>Neues Design</translation>
    </message>
    <message>
        <source>New Template</source>
        <translation>Neue Vorlage</translation>
    </message>
    <message>
        <source>No design is selected.</source>
        <translation>Kein Design ist ausgewählt.</translation>
    </message>
    <message>
        <source>No picture</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>not saved</source>
        <translation>nicht gesichert</translation>
    </message>
    <message>
        <source>Not saved yet</source>
        <translation>Noch nicht gesichert</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Number of spaces for a tab:</source>
        <translation>Leerzeichen je Tab:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Old single-file design</source>
        <translation>Altes Design in einer Datei</translation>
    </message>
    <message>
        <source>Only the first %ld matches are shown.</source>
        <translation>Nur die ersten %ld Treffer werden gezeigt.</translation>
    </message>
    <message>
        <source>Page %ld</source>
        <translation>Seite %ld</translation>
    </message>
    <message>
        <source>paid</source>
        <translation>kostenpflichtig</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Picture of the design</source>
        <translation>Bild des Designs</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Prepare for XML</source>
        <translation>Für XML aufbereiten</translation>
    </message>
    <message>
        <source>Previews generated: %@</source>
        <translation>Vorschauen erzeugt: %@</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Printing “%@”…</source>
        <translation>„%@“ wird gedruckt …</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove Line Endings</source>
        <translation>Zeilenenden entfernen</translation>
    </message>
    <message>
        <source>Remove Needless Whitespace</source>
        <translation>Überflüssigen Leerraum entfernen</translation>
    </message>
    <message>
        <source>Replace…</source>
        <translation>Ersetzen …</translation>
    </message>
    <message>
        <source>Restore &amp;Defaults</source>
        <translation>&amp;Standard wiederherstellen</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Reveal selected design in Finder.</source>
        <translation>Das ausgewählte Design im Dateimanager zeigen.</translation>
    </message>
    <message>
        <source>Revert To Saved</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Reverts selected design to last saved state.</source>
        <translation>Setzt das ausgewählte Design auf die zuletzt gesicherte Fassung zurück.</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Vorlage sichern</translation>
    </message>
    <message>
        <source>Saves selected design.</source>
        <translation>Sichert das ausgewählte Design.</translation>
    </message>
    <message>
        <source>Saving Failed</source>
        <translation>Sichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>Suche …</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Shift Left</source>
        <translation>Nach links einrücken</translation>
    </message>
    <message>
        <source>Shift Right</source>
        <translation>Nach rechts einrücken</translation>
    </message>
    <message>
        <source>Show in LB</source>
        <translation>In LB zeigen</translation>
    </message>
    <message>
        <source>Show Toolbar</source>
        <translation>Symbolleiste einblenden</translation>
    </message>
    <message>
        <source>Some designs have not been saved. Should the Layoutsmith quit anyway?</source>
        <translation>Einige Designs sind noch nicht gesichert. Soll Layoutsmith trotzdem beendet werden?</translation>
    </message>
    <message>
        <source>Something to repeat is missing, or a character needs a backslash before it.</source>
        <translation>Es fehlt etwas, das wiederholt werden soll, oder ein Zeichen braucht einen Backslash davor.</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Store</translation>
    </message>
    <message>
        <source>Template Error</source>
        <translation>Fehler in der Vorlage</translation>
    </message>
    <message>
        <source>Text Only</source>
        <translation>Nur Text</translation>
    </message>
    <message>
        <source>The design does not load: %@</source>
        <translation>Das Design wird nicht geladen: %@</translation>
    </message>
    <message>
        <source>The expression cannot be read.</source>
        <translation>Der Ausdruck ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The expression has no group "%@".</source>
        <translation>Der Ausdruck hat keine Gruppe „%@“.</translation>
    </message>
    <message>
        <source>The expression takes too long on this text.</source>
        <translation>Der Ausdruck braucht für diesen Text zu lange.</translation>
    </message>
    <message>
        <source>The file is missing; the design has no HTML.</source>
        <translation>Die Datei fehlt; das Design hat kein HTML.</translation>
    </message>
    <message>
        <source>The folder cannot be read.</source>
        <translation>Der Ordner kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The HTML cannot be read and counts as empty: %@</source>
        <translation>Das HTML kann nicht gelesen werden und gilt als leer: %@</translation>
    </message>
    <message>
        <source>The Layoutsmith</source>
        <translation>Layoutsmith</translation>
    </message>
    <message>
        <source>The link leads nowhere; the design has no HTML.</source>
        <translation>Die Verknüpfung führt ins Leere; das Design hat kein HTML.</translation>
    </message>
    <message>
        <source>The design could not be removed from the disk, and comes back at the next start:

%@</source>
        <translation>Das Design konnte nicht von der Festplatte entfernt werden und ist beim nächsten Start wieder da:

%@</translation>
    </message>
    <message>
        <source>The name is not UTF-8. Rename it, and the design loads.</source>
        <translation>Der Name ist kein UTF-8. Benennen Sie ihn um, dann wird das Design geladen.</translation>
    </message>
    <message>
        <source>The numbers in braces cannot be read.</source>
        <translation>Die Zahlen in den geschweiften Klammern sind nicht lesbar.</translation>
    </message>
    <message>
        <source>The numbers in braces stand in the wrong order.</source>
        <translation>Die Zahlen in den geschweiften Klammern stehen in falscher Reihenfolge.</translation>
    </message>
    <message>
        <source>The preview needs the module "layoutsmith_web", which is not installed.</source>
        <translation>Die Vorschau braucht das Modul „layoutsmith_web“, das nicht installiert ist.</translation>
    </message>
    <message>
        <source>The printer could not be used.</source>
        <translation>Der Drucker ließ sich nicht verwenden.</translation>
    </message>
    <message>
        <source>The template identifier must not be empty</source>
        <translation>Die Kennung der Vorlage darf nicht leer sein</translation>
    </message>
    <message>
        <source>The template identifier must not be empty
</source>
        <translation>Die Kennung der Vorlage darf nicht leer sein
</translation>
    </message>
    <message>
        <source>The text is read as %@; saving the design writes UTF-8.</source>
        <translation>Der Text wird als %@ gelesen; Sichern schreibt UTF-8.</translation>
    </message>
    <message>
        <source>The text there does not match any more.</source>
        <translation>Der Text dort passt nicht mehr.</translation>
    </message>
    <message>
        <source>The title cannot be the name of a visible folder; a new design with it is saved as "%@".</source>
        <translation>Der Titel kann nicht der Name eines sichtbaren Ordners sein; ein neues Design mit ihm wird als „%@“ gesichert.</translation>
    </message>
    <message>
        <source>The title is empty.</source>
        <translation>Der Titel ist leer.</translation>
    </message>
    <message>
        <source>There are no designs yet. Make the first one, or install Lotbook to find its built-in designs here.</source>
        <translation>Es gibt noch keine Designs. Lege das erste an, oder installiere Lotbook, um dessen mitgelieferte Designs hier zu finden.</translation>
    </message>
    <message>
        <source>There are no samples of this design's layouts.</source>
        <translation>Für die Layouts dieses Designs gibt es keine Beispiele.</translation>
    </message>
    <message>
        <source>there is no design "%@"</source>
        <translation>es gibt kein Design „%@“</translation>
    </message>
    <message>
        <source>there is no language "%@"</source>
        <translation>eine Sprache „%@“ gibt es nicht</translation>
    </message>
    <message>
        <source>There is nothing at this path.</source>
        <translation>Unter diesem Pfad ist nichts.</translation>
    </message>
    <message>
        <source>There is nothing to look for.</source>
        <translation>Es ist nichts angegeben, wonach gesucht werden soll.</translation>
    </message>
    <message>
        <source>This HTML has line ends or characters that this editor would change. It is shown read-only, so that nothing is lost.</source>
        <translation>Dieses HTML enthält Zeilenenden oder Zeichen, die dieser Editor ändern würde. Es wird nur angezeigt, damit nichts verloren geht.</translation>
    </message>
    <message>
        <source>This is not a design.</source>
        <translation>Dies ist kein Design.</translation>
    </message>
    <message>
        <source>this is not a dictionary.</source>
        <translation>dies ist kein Wörterbuch.</translation>
    </message>
    <message>
        <source>This is not a picture that can be read.</source>
        <translation>Dies ist kein lesbares Bild.</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>Symbolleiste</translation>
    </message>
    <message>
        <source>Toolbar:</source>
        <translation>Symbolleiste:</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungesicherte Änderungen</translation>
    </message>
    <message>
        <source>usage: layoutsmith colour FILE [--language NAME] [--json|--html]</source>
        <translation>Aufruf: layoutsmith colour DATEI [--language NAME] [--json|--html]</translation>
    </message>
    <message>
        <source>usage: layoutsmith list [--json]</source>
        <translation>Aufruf: layoutsmith list [--json]</translation>
    </message>
    <message>
        <source>usage: layoutsmith show NAME</source>
        <translation>Aufruf: layoutsmith show NAME</translation>
    </message>
    <message>
        <source>Version %@

A workbench for listing designs.</source>
        <translation>Version %@

Eine Werkbank für Angebotsdesigns.</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>What is looked for behind has no greatest length.</source>
        <translation>Was davor stehen soll, hat keine größte Länge.</translation>
    </message>
    <message>
        <source>Will display this template in Lotbook.</source>
        <translation>Zeigt diese Vorlage in Lotbook.</translation>
    </message>
</context>
<context>
    <name>Placeholder</name>
    <message>
        <source>Condition</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Item Number</source>
        <translation>Artikelnummer</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Artikelstandort</translation>
    </message>
    <message>
        <source>Part for One Layout</source>
        <translation>Teil für ein Layout</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Picture 1</source>
        <translation>Bild 1</translation>
    </message>
    <message>
        <source>Picture 2</source>
        <translation>Bild 2</translation>
    </message>
    <message>
        <source>Picture 3</source>
        <translation>Bild 3</translation>
    </message>
    <message>
        <source>Picture 4</source>
        <translation>Bild 4</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Returns</source>
        <translation>Rücknahme</translation>
    </message>
    <message>
        <source>Seller&apos;s Name</source>
        <translation>Name des Verkäufers</translation>
    </message>
    <message>
        <source>Shipping</source>
        <translation>Versand</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
</context>
</TS>
