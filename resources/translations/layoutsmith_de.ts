<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>LSMDesignEditorViewController</name>
    <message>
        <source>&amp;Identifier:</source>
        <translation>&amp;Kennung:</translation>
    </message>
    <message>
        <source>&amp;Keywords:</source>
        <translation>&amp;Stichwörter:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Pictures in the text:</source>
        <translation>Bilder im &amp;Text:</translation>
    </message>
    <message>
        <source>any version</source>
        <translation>jede Version</translation>
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
        <source>Goes to a layout&apos;s place in the HTML</source>
        <translation>Geht zur Stelle eines Layouts im HTML</translation>
    </message>
    <message>
        <source>Inserts what Lotbook replaces by the listing&apos;s data</source>
        <translation>Fügt ein, was Lotbook durch die Angaben des Angebots ersetzt</translation>
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
        <source>Parts of the design</source>
        <translation>Teile des Designs</translation>
    </message>
    <message>
        <source>Re&amp;quires Lotbook:</source>
        <translation>Ab &amp;Lotbook:</translation>
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
        <source>&amp;Generate Samples…</source>
        <translation>Beispiele &amp;erzeugen …</translation>
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
        <source>&amp;Use Preview as Picture</source>
        <translation>Vorschau als Bild &amp;verwenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Chec&amp;k HTML</source>
        <translation>HTML prü&amp;fen</translation>
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
        <source>F&amp;indings</source>
        <translation>Befun&amp;de</translation>
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
        <source>Prin&amp;t HTML…</source>
        <translation>HTML druc&amp;ken …</translation>
    </message>
    <message>
        <source>R&amp;eveal in Finder</source>
        <translation>Im Dateimanager &amp;zeigen</translation>
    </message>
    <message>
        <source>Rena&amp;me Design</source>
        <translation>Design &amp;umbenennen</translation>
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
    <message>
        <source>Undo &amp;Delete</source>
        <translation>Löschen &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>Next Finding</source>
        <translation>Nächster Befund</translation>
    </message>
    <message>
        <source>Previous Finding</source>
        <translation>Voriger Befund</translation>
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
    <name>LSMFindingsView</name>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Hide Findings</source>
        <translation>Befunde ausblenden</translation>
    </message>
    <message>
        <source>Hides the list of findings</source>
        <translation>Blendet die Liste der Befunde aus</translation>
    </message>
</context>
<context>
    <name>LSMKeywordsViewController</name>
    <message>
        <source>Add a keyword</source>
        <translation>Stichwort hinzufügen</translation>
    </message>
    <message>
        <source>Known keywords</source>
        <translation>Bekannte Stichwörter</translation>
    </message>
    <message>
        <source>Remove the selected keywords</source>
        <translation>Ausgewählte Stichwörter entfernen</translation>
    </message>
</context>
<context>
    <name>LSMPreferencesPanelController</name>
    <message>
        <source>&amp;Finder label:</source>
        <translation>&amp;Finder-Etikett:</translation>
    </message>
    <message>
        <source>&amp;Lotbook version:</source>
        <translation>&amp;Lotbook-Version:</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>Takes effect at the next start of the Layoutsmith.</source>
        <translation>Gilt ab dem nächsten Start von Layoutsmith.</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>The folders of paid designs get it when they are saved.</source>
        <translation>Ordner kostenpflichtiger Designs erhalten es beim Sichern.</translation>
    </message>
</context>
<context>
    <name>LSMPreviewView</name>
    <message>
        <source>Makes what the preview shows the picture of the design</source>
        <translation>Macht, was die Vorschau zeigt, zum Bild des Designs</translation>
    </message>
    <message>
        <source>Preview of the design</source>
        <translation>Vorschau des Designs</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>The preview has stopped working. The HTML is not touched by this.</source>
        <translation>Die Vorschau ist ausgefallen. Das HTML ist davon nicht berührt.</translation>
    </message>
    <message>
        <source>Use Preview as Picture</source>
        <translation>Vorschau als Bild verwenden</translation>
    </message>
</context>
<context>
    <name>LSMPropertyEditorViewController</name>
    <message>
        <source>Add a property</source>
        <translation>Eigenschaft hinzufügen</translation>
    </message>
    <message>
        <source>Properties of the design</source>
        <translation>Eigenschaften des Designs</translation>
    </message>
    <message>
        <source>Remove the selected properties</source>
        <translation>Ausgewählte Eigenschaften entfernen</translation>
    </message>
</context>
<context>
    <name>LSMSampleWindow</name>
    <message>
        <source>Next Sample</source>
        <translation>Nächstes Beispiel</translation>
    </message>
    <message>
        <source>Next Sample (Right)</source>
        <translation>Nächstes Beispiel (rechts)</translation>
    </message>
    <message>
        <source>Open in &amp;Browser</source>
        <translation>Im &amp;Browser öffnen</translation>
    </message>
    <message>
        <source>Previous Sample</source>
        <translation>Voriges Beispiel</translation>
    </message>
    <message>
        <source>Previous Sample (Left)</source>
        <translation>Voriges Beispiel (links)</translation>
    </message>
    <message>
        <source>Sample of a layout</source>
        <translation>Beispiel eines Layouts</translation>
    </message>
</context>
<context>
    <name>LSMSamplesView</name>
    <message>
        <source>&amp;Generate Samples…</source>
        <translation>Beispiele &amp;erzeugen …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Has Lotbook render a sample of each layout</source>
        <translation>Lässt Lotbook von jedem Layout ein Beispiel erzeugen</translation>
    </message>
    <message>
        <source>Progress of the samples</source>
        <translation>Fortschritt der Beispiele</translation>
    </message>
    <message>
        <source>Samples of the layouts</source>
        <translation>Beispiele der Layouts</translation>
    </message>
    <message>
        <source>There are no samples of this design&apos;s layouts.</source>
        <translation>Für die Layouts dieses Designs gibt es keine Beispiele.</translation>
    </message>
</context>
<context>
    <name>LSMStoreView</name>
    <message>
        <source>&amp;Category:</source>
        <translation>Kate&amp;gorie:</translation>
    </message>
    <message>
        <source>&amp;Paid design, sold through the store</source>
        <translation>&amp;Kostenpflichtiges Design, über den Store verkauft</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titel:</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>De&amp;scription:</source>
        <translation>Besch&amp;reibung:</translation>
    </message>
    <message>
        <source>P&amp;rice:</source>
        <translation>&amp;Preis:</translation>
    </message>
    <message>
        <source>Released:</source>
        <translation>Veröffentlicht:</translation>
    </message>
    <message>
        <source>S&amp;upport address:</source>
        <translation>S&amp;upport-Adresse:</translation>
    </message>
</context>
<context>
    <name>LSMValuesViewController</name>
    <message>
        <source>Add a value</source>
        <translation>Wert hinzufügen</translation>
    </message>
    <message>
        <source>Allowed values</source>
        <translation>Erlaubte Werte</translation>
    </message>
    <message>
        <source>Remove the selected values</source>
        <translation>Ausgewählte Werte entfernen</translation>
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
        <source>%@ - %@pt</source>
        <translation>%@ – %@ pt</translation>
    </message>
    <message>
        <source>%@ cannot be coloured: %@</source>
        <translation>%@ lässt sich nicht einfärben: %@</translation>
    </message>
    <message>
        <source>%@ cannot have an attribute “%@”.</source>
        <translation>%@ kann kein Attribut „%@“ haben.</translation>
    </message>
    <message>
        <source>%@ designs</source>
        <translation>%@ Designs</translation>
    </message>
    <message>
        <source>%@ has a quotation mark that belongs to nothing.</source>
        <translation>%@ hat ein Anführungszeichen, das zu nichts gehört.</translation>
    </message>
    <message>
        <source>%@ has a “=” without the name of an attribute.</source>
        <translation>%@ hat ein „=“ ohne den Namen eines Attributs.</translation>
    </message>
    <message>
        <source>%@ has no end; a quotation mark may be missing.</source>
        <translation>%@ hat kein Ende; vielleicht fehlt ein Anführungszeichen.</translation>
    </message>
    <message>
        <source>%@ has no place here.</source>
        <translation>%@ hat hier keinen Platz.</translation>
    </message>
    <message>
        <source>%@ has no value for its attribute “%@”.</source>
        <translation>%@ hat für sein Attribut „%@“ keinen Wert.</translation>
    </message>
    <message>
        <source>%@ has no “&gt;” at its end.</source>
        <translation>%@ hat am Ende kein „&gt;“.</translation>
    </message>
    <message>
        <source>%@ has the name “%@”, which another has already.</source>
        <translation>%@ hat den Namen „%@“, den schon ein anderes Element hat.</translation>
    </message>
    <message>
        <source>%@ must be %@.</source>
        <translation>%@ muss %@ sein.</translation>
    </message>
    <message>
        <source>%@ must not stand in &lt;%@&gt;.</source>
        <translation>%@ darf nicht in &lt;%@&gt; stehen.</translation>
    </message>
    <message>
        <source>%@ must not stand in one of its own kind.</source>
        <translation>%@ darf nicht in seinesgleichen stehen.</translation>
    </message>
    <message>
        <source>%@ of %@</source>
        <translation>%@ von %@</translation>
    </message>
    <message>
        <source>%@ of %@ designs</source>
        <translation>%@ von %@ Designs</translation>
    </message>
    <message>
        <source>&lt;%@&gt; is missing here.</source>
        <translation>Hier fehlt &lt;%@&gt;.</translation>
    </message>
    <message>
        <source>Buyers would see this as it stands; did you mean “[[%@]]”?</source>
        <translation>Käufer sähen dies, wie es dasteht; meinten Sie „[[%@]]“?</translation>
    </message>
    <message>
        <source>HTML stands behind &lt;/body&gt;.</source>
        <translation>Hinter &lt;/body&gt; steht HTML.</translation>
    </message>
    <message>
        <source>No “[[if …]]” comes before this “[[endif]]”.</source>
        <translation>Vor diesem „[[endif]]“ steht kein „[[if …]]“.</translation>
    </message>
    <message>
        <source>The &lt;%@&gt; behind this one should probably be &lt;/%@&gt;.</source>
        <translation>Das &lt;%@&gt; nach diesem sollte wohl &lt;/%@&gt; sein.</translation>
    </message>
    <message>
        <source>%@ stands beside it: its conversion was cut short, or these are two designs. The old file still loads.</source>
        <translation>%@ steht daneben: Seine Umwandlung wurde unterbrochen, oder dies sind zwei Designs. Die alte Datei wird weiterhin geladen.</translation>
    </message>
    <message>
        <source>The address is not https: browsers may not load it.</source>
        <translation>Die Adresse ist nicht https: Browser laden sie womöglich nicht.</translation>
    </message>
    <message>
        <source>The checker of HTML says: %@</source>
        <translation>Die HTML-Prüfung meldet: %@</translation>
    </message>
    <message>
        <source>The condition is missing; write “[[if LBTitle]]”, for one.</source>
        <translation>Die Bedingung fehlt; schreiben Sie zum Beispiel „[[if LBTitle]]“.</translation>
    </message>
    <message>
        <source>The condition is not complete, so the part is never shown.</source>
        <translation>Die Bedingung ist unvollständig, der Teil wird nie gezeigt.</translation>
    </message>
    <message>
        <source>The design has no property for “%@”; did you mean “%@”?</source>
        <translation>Das Design hat keine Eigenschaft für „%@“; meinten Sie „%@“?</translation>
    </message>
    <message>
        <source>The document type must stand in front of everything else.</source>
        <translation>Der Dokumenttyp muss vor allem anderen stehen.</translation>
    </message>
    <message>
        <source>There is no placeholder “%@”; did you mean “%@”?</source>
        <translation>Es gibt keinen Platzhalter „%@“; meinten Sie „%@“?</translation>
    </message>
    <message>
        <source>This element is not ended by an end tag of its own.</source>
        <translation>Dieses Element wird von keinem eigenen End-Tag beendet.</translation>
    </message>
    <message>
        <source>%@, %@ could not be read</source>
        <translation>%@, %@ nicht lesbar</translation>
    </message>
    <message>
        <source>%ld bytes</source>
        <translation>%ld Byte</translation>
    </message>
    <message>
        <source>%ld errors</source>
        <translation>%ld Fehler</translation>
    </message>
    <message>
        <source>%ld found</source>
        <translation>%ld gefunden</translation>
    </message>
    <message>
        <source>One more finding is not listed.</source>
        <translation>Ein weiterer Befund ist nicht aufgeführt.</translation>
    </message>
    <message>
        <source>%ld more findings are not listed.</source>
        <translation>%ld weitere Befunde sind nicht aufgeführt.</translation>
    </message>
    <message>
        <source>%ld notes</source>
        <translation>%ld Hinweise</translation>
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
        <source>%ld warnings</source>
        <translation>%ld Warnungen</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>&lt;/%@&gt; is missing before %@.</source>
        <translation>&lt;/%@&gt; fehlt vor %@.</translation>
    </message>
    <message>
        <source>&lt;/%@&gt; is missing.</source>
        <translation>&lt;/%@&gt; fehlt.</translation>
    </message>
    <message>
        <source>&quot;%@&quot; answered with an error: %@</source>
        <translation>„%@“ meldet einen Fehler: %@</translation>
    </message>
    <message>
        <source>&quot;%@&quot; can&apos;t be reached: there is no session bus (D-Bus).</source>
        <translation>„%@“ ist nicht erreichbar: Es gibt keinen Sitzungsbus (D-Bus).</translation>
    </message>
    <message>
        <source>&quot;%@&quot; isn&apos;t running.</source>
        <translation>„%@“ läuft nicht.</translation>
    </message>
    <message>
        <source>&quot;%@&quot; quit before it answered.</source>
        <translation>„%@“ wurde beendet, ohne zu antworten.</translation>
    </message>
    <message>
        <source>&quot;%@&quot; took too long to answer.</source>
        <translation>„%@“ hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>1 design</source>
        <translation>1 Design</translation>
    </message>
    <message>
        <source>1 error</source>
        <translation>1 Fehler</translation>
    </message>
    <message>
        <source>1 note</source>
        <translation>1 Hinweis</translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 Warnung</translation>
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
        <source>A deletion, or its undoing, that was cut short has left this folder; nothing uses it.</source>
        <translation>Ein abgebrochenes Löschen oder Zurückholen hat diesen Ordner hinterlassen; nichts benutzt ihn.</translation>
    </message>
    <message>
        <source>A design keeps its keywords when they are removed from this list.</source>
        <translation>Ein Design behält seine Stichwörter, auch wenn sie aus dieser Liste entfernt werden.</translation>
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
        <source>A heavy lamp from an old ship&apos;s office. The shade turns, the foot has felt under it. Small marks of age, no dents.</source>
        <translation>Eine schwere Lampe aus einem alten Schiffsbüro. Der Schirm ist drehbar, unter dem Fuß ist Filz. Kleine Altersspuren, keine Dellen.</translation>
    </message>
    <message>
        <source>A parenthesis is missing or stands alone.</source>
        <translation>Eine Klammer fehlt oder steht allein.</translation>
    </message>
    <message>
        <source>A quotation mark of an attribute is missing.</source>
        <translation>Ein Anführungszeichen eines Attributs fehlt.</translation>
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
        <source>All</source>
        <translation>Alle</translation>
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
        <source>Another design has the same identifier.</source>
        <translation>Ein anderes Design hat dieselbe Kennung.</translation>
    </message>
    <message>
        <source>Another design has the same name.</source>
        <translation>Ein anderes Design hat denselben Namen.</translation>
    </message>
    <message>
        <source>Are you sure you want to save the Template '%@'? The following issues were found:

</source>
        <translation>Soll die Vorlage „%@“ wirklich gesichert werden? Folgendes ist aufgefallen:

</translation>
    </message>
    <message>
        <source>As Lotbook is set</source>
        <translation>Wie in Lotbook eingestellt</translation>
    </message>
    <message>
        <source>As Written</source>
        <translation>Wie geschrieben</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Available items</source>
        <translation>Verfügbare Elemente</translation>
    </message>
    <message>
        <source>Bank transfer or card</source>
        <translation>Überweisung oder Karte</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>Ja/Nein</translation>
    </message>
    <message>
        <source>Brass desk lamp, 1930s</source>
        <translation>Messing-Schreibtischlampe, 1930er</translation>
    </message>
    <message>
        <source>Bremen, Germany</source>
        <translation>Bremen, Deutschland</translation>
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
        <source>Cancelling …</source>
        <translation>Wird abgebrochen …</translation>
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
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
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
        <source>Continue</source>
        <translation>Fortfahren</translation>
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
        <source>Could not be saved: %@</source>
        <translation>Konnte nicht gesichert werden: %@</translation>
    </message>
    <message>
        <source>Couldn&apos;t change design identifier of selected listing in Lotbook.</source>
        <translation>Die Design-Kennung des ausgewählten Angebots ließ sich in Lotbook nicht ändern.</translation>
    </message>
    <message>
        <source>Couldn&apos;t change layout name of selected listing in Lotbook.</source>
        <translation>Das Layout des ausgewählten Angebots ließ sich in Lotbook nicht ändern.</translation>
    </message>
    <message>
        <source>Couldn&apos;t find preview file at %@.</source>
        <translation>Die Vorschaudatei %@ wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Couldn&apos;t get title of selected listing from Lotbook</source>
        <translation>Der Titel des ausgewählten Angebots war von Lotbook nicht zu bekommen</translation>
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
        <source>Custom Settings</source>
        <translation>Eigene Einstellungen</translation>
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
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Default Color</source>
        <translation>Standardfarbe</translation>
    </message>
    <message>
        <source>Default String</source>
        <translation>Standardtext</translation>
    </message>
    <message>
        <source>Default Value</source>
        <translation>Standardwert</translation>
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
        <source>Delete Scheme…</source>
        <translation>Schema löschen …</translation>
    </message>
    <message>
        <source>Delete the scheme?</source>
        <translation>Soll das Schema gelöscht werden?</translation>
    </message>
    <message>
        <source>Deleted schemes cannot be restored.</source>
        <translation>Gelöschte Schemata können nicht zurückgeholt werden.</translation>
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
        <source>Desktop</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>Dictionary of %ld</source>
        <translation>Verzeichnis mit %ld</translation>
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
        <source>Edit the list of known keywords</source>
        <translation>Liste der bekannten Stichwörter bearbeiten</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Empty Fields</source>
        <translation>Leere Felder</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>EUR 84.00</source>
        <translation>84,00 EUR</translation>
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
        <source>Fit</source>
        <translation>Eingepasst</translation>
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
        <source>Generating the preview in Lotbook timed out.</source>
        <translation>Lotbook hat die Vorschau nicht rechtzeitig erzeugt.</translation>
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
        <source>Go to Line…</source>
        <translation>Gehe zu Zeile …</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Harbour Finds</source>
        <translation>Hafenfunde</translation>
    </message>
    <message>
        <source>Hide Toolbar</source>
        <translation>Symbolleiste ausblenden</translation>
    </message>
    <message>
        <source>Holds something that is no text</source>
        <translation>Enthält etwas, das kein Text ist</translation>
    </message>
    <message>
        <source>HTML</source>
        <translation>HTML</translation>
    </message>
    <message>
        <source>HTML knows no %@.</source>
        <translation>HTML kennt kein %@.</translation>
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
        <source>Keep It</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Keywords of the design</source>
        <translation>Stichwörter des Designs</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>Line %ld: %@</source>
        <translation>Zeile %ld: %@</translation>
    </message>
    <message>
        <source>Line number:</source>
        <translation>Zeilennummer:</translation>
    </message>
    <message>
        <source>List of %ld</source>
        <translation>Liste mit %ld</translation>
    </message>
    <message>
        <source>Lotbook renders the design as it was last saved.</source>
        <translation>Lotbook zeigt das Design, wie es zuletzt gesichert wurde.</translation>
    </message>
    <message>
        <source>Lotbook renders the layouts of &quot;%@&quot; …</source>
        <translation>Lotbook erzeugt die Layouts von „%@“ …</translation>
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
        <source>Marketplaces do not allow scripts in listings.</source>
        <translation>Marktplätze erlauben in Angeboten keine Skripte.</translation>
    </message>
    <message>
        <source>Missing Pictures</source>
        <translation>Fehlende Bilder</translation>
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
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>New Design</source>
        <translation>Neues Design</translation>
    </message>
    <message>
        <source>New Design Property</source>
        <translation>Neue Design-Eigenschaft</translation>
    </message>
    <message>
        <source>New Scheme</source>
        <translation>Neues Schema</translation>
    </message>
    <message>
        <source>New Template</source>
        <translation>Neue Vorlage</translation>
    </message>
    <message>
        <source>New Value</source>
        <translation>Neuer Wert</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>No design is selected.</source>
        <translation>Kein Design ist ausgewählt.</translation>
    </message>
    <message>
        <source>No design matches “%@”.</source>
        <translation>Kein Design passt zu „%@“.</translation>
    </message>
    <message>
        <source>No findings</source>
        <translation>Keine Befunde</translation>
    </message>
    <message>
        <source>No Name</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>No picture</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>No properties yet. Add the texts, colours, switches and choices that Lotbook is to offer with this design.</source>
        <translation>Noch keine Eigenschaften. Fügen Sie die Texte, Farben, Schalter und Auswahlen hinzu, die Lotbook mit diesem Design anbieten soll.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Not a price yet; such as 9.90</source>
        <translation>Noch kein Preis; zum Beispiel 9.90</translation>
    </message>
    <message>
        <source>Not a property: %@</source>
        <translation>Keine Eigenschaft: %@</translation>
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
        <source>Orange</source>
        <translation>Orange</translation>
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
        <source>Parcel, two to three days, EUR 6.90</source>
        <translation>Paket, zwei bis drei Tage, 6,90 EUR</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Picture Not Readable</source>
        <translation>Bild nicht lesbar</translation>
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
        <source>Placeholders</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>Please issue the follwing command(s) on the command line before starting Lotbook:

%@</source>
        <translation>Gib bitte diese Befehle auf der Kommandozeile ein, bevor du Lotbook startest:

%@</translation>
    </message>
    <message>
        <source>Please start Lotbook, selected a single listing, and then click on &apos;Continue&apos;.</source>
        <translation>Starte bitte Lotbook, wähle ein einzelnes Angebot aus und klicke dann auf „Fortfahren“.</translation>
    </message>
    <message>
        <source>Please start Lotbook, selected a single template, and then click on &apos;Continue&apos;.</source>
        <translation>Starte bitte Lotbook, wähle eine einzelne Vorlage aus und klicke dann auf „Fortfahren“.</translation>
    </message>
    <message>
        <source>Prepare for XML</source>
        <translation>Für XML aufbereiten</translation>
    </message>
    <message>
        <source>Preview Listing</source>
        <translation>Angebot in der Vorschau</translation>
    </message>
    <message>
        <source>Preview Size</source>
        <translation>Größe der Vorschau</translation>
    </message>
    <message>
        <source>Preview Width</source>
        <translation>Breite der Vorschau</translation>
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
        <source>Purple</source>
        <translation>Lila</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
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
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace the scheme?</source>
        <translation>Soll das Schema ersetzt werden?</translation>
    </message>
    <message>
        <source>Replace…</source>
        <translation>Ersetzen …</translation>
    </message>
    <message>
        <source>Restart Needed</source>
        <translation>Neustart nötig</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Restore &amp;Defaults</source>
        <translation>&amp;Standard wiederherstellen</translation>
    </message>
    <message>
        <source>Restore the defaults?</source>
        <translation>Standard wiederherstellen?</translation>
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
        <source>Rewired and ready to use</source>
        <translation>Neu verkabelt und betriebsbereit</translation>
    </message>
    <message>
        <source>Right to Left</source>
        <translation>Von rechts nach links</translation>
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
        <source>Save Scheme…</source>
        <translation>Schema sichern …</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Vorlage sichern</translation>
    </message>
    <message>
        <source>Save this design first: Lotbook renders what has been saved.</source>
        <translation>Sichere dieses Design zuerst: Lotbook zeigt, was gesichert ist.</translation>
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
        <source>Separator</source>
        <translation>Trennlinie</translation>
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
        <source>Goes to the list of findings, or hides it</source>
        <translation>Zeigt die Liste der Befunde oder blendet sie aus</translation>
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
        <source>String</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Such as 8.2</source>
        <translation>Zum Beispiel 8.2</translation>
    </message>
    <message>
        <source>Such as https://www.example.com</source>
        <translation>Zum Beispiel https://www.example.com</translation>
    </message>
    <message>
        <source>Tablet</source>
        <translation>Tablet</translation>
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
        <source>The comment has no end.</source>
        <translation>Der Kommentar hat kein Ende.</translation>
    </message>
    <message>
        <source>The design could not be removed from the disk, and comes back at the next start:

%@</source>
        <translation>Das Design konnte nicht von der Festplatte entfernt werden und ist beim nächsten Start wieder da:

%@</translation>
    </message>
    <message>
        <source>The design does not load: %@</source>
        <translation>Das Design wird nicht geladen: %@</translation>
    </message>
    <message>
        <source>The design has no property for “%@”.</source>
        <translation>Das Design hat keine Eigenschaft für „%@“.</translation>
    </message>
    <message>
        <source>The design was not deleted, because no copy of it could be kept for bringing it back:

%@</source>
        <translation>Das Design wurde nicht gelöscht, weil keine Kopie davon aufbewahrt werden konnte, um es zurückzuholen:

%@</translation>
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
        <source>The file %@ is not UTF-8.</source>
        <translation>Die Datei %@ ist nicht in UTF-8.</translation>
    </message>
    <message>
        <source>The file containing the HTML of the design template &quot;%@&quot; has been changed externally, as well as in the Layoutsmith. Do you want to replace the HTML with the one on disk, or keep your current one?</source>
        <translation>Die Datei mit dem HTML des Designs „%@“ wurde von einem anderen Programm geändert, und auch hier. Soll das HTML auf der Festplatte das jetzige ersetzen, oder soll das jetzige bleiben?</translation>
    </message>
    <message>
        <source>The file is missing; the design has no HTML.</source>
        <translation>Die Datei fehlt; das Design hat kein HTML.</translation>
    </message>
    <message>
        <source>The first one</source>
        <translation>Das erste</translation>
    </message>
    <message>
        <source>The folder cannot be read.</source>
        <translation>Der Ordner kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The form of the HTML is too odd to be checked.</source>
        <translation>Die Form des HTML ist zu ungewöhnlich, um geprüft zu werden.</translation>
    </message>
    <message>
        <source>The HTML cannot be read and counts as empty: %@</source>
        <translation>Das HTML kann nicht gelesen werden und gilt als leer: %@</translation>
    </message>
    <message>
        <source>The HTML names no layouts</source>
        <translation>Das HTML nennt keine Layouts</translation>
    </message>
    <message>
        <source>The layout marker has no “]]”.</source>
        <translation>Die Layoutmarke hat kein „]]“.</translation>
    </message>
    <message>
        <source>The Layoutsmith</source>
        <translation>Layoutsmith</translation>
    </message>
    <message>
        <source>The Layoutsmith needs to be restarted to change the Lotbook version. Do you want to quit now?</source>
        <translation>The Layoutsmith muss neu gestartet werden, um die Lotbook-Version zu wechseln. Jetzt beenden?</translation>
    </message>
    <message>
        <source>The link leads nowhere; the design has no HTML.</source>
        <translation>Die Verknüpfung führt ins Leere; das Design hat kein HTML.</translation>
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
        <source>The picture cannot be read</source>
        <translation>Das Bild ist nicht lesbar</translation>
    </message>
    <message>
        <source>The picture has no text (alt) for those who cannot see it.</source>
        <translation>Das Bild hat keinen Text (alt) für die, die es nicht sehen können.</translation>
    </message>
    <message>
        <source>The picture&apos;s address is not https: buyers may not see it.</source>
        <translation>Die Adresse des Bildes ist nicht https: Käufer sehen es vielleicht nicht.</translation>
    </message>
    <message>
        <source>The placeholder has no “]]”.</source>
        <translation>Der Platzhalter hat kein „]]“.</translation>
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
        <source>The scheme was not saved.</source>
        <translation>Das Schema wurde nicht gesichert.</translation>
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
        <source>There is a default layout already; this one does not count.</source>
        <translation>Es gibt schon ein Standardlayout; dieses zählt nicht.</translation>
    </message>
    <message>
        <source>There is already a scheme in the file &quot;%@&quot;.</source>
        <translation>Es gibt schon ein Schema in der Datei „%@“.</translation>
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
        <source>There is no placeholder “%@”.</source>
        <translation>Es gibt keinen Platzhalter „%@“.</translation>
    </message>
    <message>
        <source>There is no “[[endif]]” behind it: the part reaches to the end.</source>
        <translation>Dahinter steht kein „[[endif]]“: Der Teil reicht bis zum Ende.</translation>
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
        <source>This design has no properties.</source>
        <translation>Dieses Design hat keine Eigenschaften.</translation>
    </message>
    <message>
        <source>This HTML has line ends or characters that this editor would change. It is shown read-only, so that nothing is lost.</source>
        <translation>Dieses HTML enthält Zeilenenden oder Zeichen, die dieser Editor ändern würde. Es wird nur angezeigt, damit nichts verloren geht.</translation>
    </message>
    <message>
        <source>This is no placeholder: buyers would see it as it stands.</source>
        <translation>Das ist kein Platzhalter: Käufer sähen es so, wie es dasteht.</translation>
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
        <source>This number means no character.</source>
        <translation>Diese Nummer bezeichnet kein Zeichen.</translation>
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
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo &amp;Delete</source>
        <translation>Löschen &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>Undo &amp;Delete of “%@”</source>
        <translation>Löschen von „%@“ &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungesicherte Änderungen</translation>
    </message>
    <message>
        <source>Until you choose colors, they follow light and dark.</source>
        <translation>Bis Sie Farben wählen, richten sie sich nach Hell und Dunkel.</translation>
    </message>
    <message>
        <source>usage: layoutsmith check [PATH...] [--json] [--fail-level note|warning|error]</source>
        <translation>Aufruf: layoutsmith check [PFAD...] [--json] [--fail-level note|warning|error]</translation>
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
        <source>Used, very good</source>
        <translation>Gebraucht, sehr gut</translation>
    </message>
    <message>
        <source>Usual Listing</source>
        <translation>Übliches Angebot</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Version %@

A workbench for listing designs.</source>
        <translation>Version %@

Eine Werkbank für Angebotsdesigns.</translation>
    </message>
    <message>
        <source>Very Long Texts</source>
        <translation>Sehr lange Texte</translation>
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
        <source>What this design has in place of its properties is no list. It stays as it is.</source>
        <translation>Was dieses Design an Stelle seiner Eigenschaften hat, ist keine Liste. Es bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>What you have set on this page will be lost.</source>
        <translation>Was Sie auf dieser Seite eingestellt haben, geht verloren.</translation>
    </message>
    <message>
        <source>Will display this template in Lotbook.</source>
        <translation>Zeigt diese Vorlage in Lotbook.</translation>
    </message>
    <message>
        <source>Within 30 days</source>
        <translation>Innerhalb von 30 Tagen</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>“%@” could not be saved: %@</source>
        <translation>„%@“ konnte nicht gesichert werden: %@</translation>
    </message>
    <message>
        <source>“%@” does not end with “;”.</source>
        <translation>„%@“ endet nicht mit „;“.</translation>
    </message>
    <message>
        <source>“%@” has no place in the condition, so the part is never shown; write names with “not”, “and” and “or”.</source>
        <translation>„%@“ gehört nicht in die Bedingung, der Teil wird nie gezeigt; schreiben Sie Namen mit „not“, „and“ und „or“.</translation>
    </message>
    <message>
        <source>“%@” is in the list already.</source>
        <translation>„%@“ steht schon in der Liste.</translation>
    </message>
    <message>
        <source>“%@” is not a picture that can be read. The design keeps the one that it has.</source>
        <translation>„%@“ ist kein lesbares Bild. Das Design behält das Bild, das es hat.</translation>
    </message>
    <message>
        <source>“%@” is there already; only the first counts.</source>
        <translation>„%@“ steht schon da; nur das erste zählt.</translation>
    </message>
    <message>
        <source>“%@” means no character; a plain “&amp;” is written “&amp;amp;”.</source>
        <translation>„%@“ steht für kein Zeichen; ein bloßes „&amp;“ schreibt man „&amp;amp;“.</translation>
    </message>
    <message>
        <source>“%@” was deleted.</source>
        <translation>„%@“ wurde gelöscht.</translation>
    </message>
    <message>
        <source>“%@” was saved.</source>
        <translation>„%@“ wurde gesichert.</translation>
    </message>
    <message>
        <source>The HTML is too long to be checked.</source>
        <translation>Das HTML ist zu lang, um geprüft zu werden.</translation>
    </message>
    <message>
        <source>Another version of Lotbook has been chosen. Start the Layoutsmith anew to work with it.</source>
        <translation>Eine andere Version von Lotbook ist gewählt. Starte den Layoutsmith neu, um mit ihr zu arbeiten.</translation>
    </message>
    <message>
        <source>The HTML of &quot;%@&quot; could not be read again. It stays as it is in the editor.</source>
        <translation>Das HTML von „%@“ konnte nicht neu gelesen werden. Im Editor bleibt es, wie es ist.</translation>
    </message>
</context>
<context>
    <name>MGSColourSchemeSave</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Save Scheme</source>
        <translation>Schema sichern</translation>
    </message>
</context>
<context>
    <name>MGSPrefsColourProperties</name>
    <message>
        <source>Color of lines with findings</source>
        <translation>Farbe von Zeilen mit Befunden</translation>
    </message>
    <message>
        <source>Color of invisible characters</source>
        <translation>Farbe unsichtbarer Zeichen</translation>
    </message>
    <message>
        <source>Color of the insertion point</source>
        <translation>Farbe der Einfügemarke</translation>
    </message>
    <message>
        <source>Color of the current line</source>
        <translation>Farbe der aktuellen Zeile</translation>
    </message>
    <message>
        <source>Color of the background</source>
        <translation>Farbe des Hintergrunds</translation>
    </message>
    <message>
        <source>Color of the text</source>
        <translation>Farbe des Textes</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>&amp;Background:</source>
        <translation>&amp;Hintergrund:</translation>
    </message>
    <message>
        <source>Code:</source>
        <translation>Code:</translation>
    </message>
    <message>
        <source>Color of attributes</source>
        <translation>Farbe der Attribute</translation>
    </message>
    <message>
        <source>Color of tags and commands</source>
        <translation>Farbe der Tags und Befehle</translation>
    </message>
    <message>
        <source>Color of comments</source>
        <translation>Farbe der Kommentare</translation>
    </message>
    <message>
        <source>Color of completions</source>
        <translation>Farbe der Vervollständigungen</translation>
    </message>
    <message>
        <source>Color of instructions</source>
        <translation>Farbe der Anweisungen</translation>
    </message>
    <message>
        <source>Color of keywords</source>
        <translation>Farbe der Schlüsselwörter</translation>
    </message>
    <message>
        <source>Color of numbers</source>
        <translation>Farbe der Zahlen</translation>
    </message>
    <message>
        <source>Color of strings</source>
        <translation>Farbe der Zeichenketten</translation>
    </message>
    <message>
        <source>Color of variables</source>
        <translation>Farbe der Variablen</translation>
    </message>
    <message>
        <source>Color strings over several lines</source>
        <translation>Zeichenketten über mehrere Zeilen einfärben</translation>
    </message>
    <message>
        <source>Unclosed strings and comments end with their line</source>
        <translation>Nicht Geschlossenes endet mit seiner Zeile</translation>
    </message>
    <message>
        <source>Tags and commands</source>
        <translation>Tags und Befehle</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Kommentare</translation>
    </message>
    <message>
        <source>Completions</source>
        <translation>Vervollständigungen</translation>
    </message>
    <message>
        <source>Current &amp;line:</source>
        <translation>Aktuelle &amp;Zeile:</translation>
    </message>
    <message>
        <source>Editor:</source>
        <translation>Editor:</translation>
    </message>
    <message>
        <source>&amp;Findings:</source>
        <translation>&amp;Befunde:</translation>
    </message>
    <message>
        <source>&amp;Insertion point:</source>
        <translation>Einfüge&amp;marke:</translation>
    </message>
    <message>
        <source>Instructions</source>
        <translation>Anweisungen</translation>
    </message>
    <message>
        <source>In&amp;visible characters:</source>
        <translation>&amp;Unsichtbare Zeichen:</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Schlüsselwörter</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>Other:</source>
        <translation>Weiteres:</translation>
    </message>
    <message>
        <source>&amp;Scheme:</source>
        <translation>S&amp;chema:</translation>
    </message>
    <message>
        <source>Strings</source>
        <translation>Zeichenketten</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Text:</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>Variablen</translation>
    </message>
</context>
<context>
    <name>MGSPrefsCommonViews</name>
    <message>
        <source>Restore Defaults…</source>
        <translation>Standard wiederherstellen …</translation>
    </message>
</context>
<context>
    <name>MGSPrefsEditorProperties</name>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>at the page guide</source>
        <translation>an der Seitenlinie</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>Color the c&amp;ode</source>
        <translation>C&amp;ode einfärben</translation>
    </message>
    <message>
        <source>Column of the page guide</source>
        <translation>Spalte der Seitenlinie</translation>
    </message>
    <message>
        <source>Completion:</source>
        <translation>Vervollständigen:</translation>
    </message>
    <message>
        <source>Delay of suggestions</source>
        <translation>Wartezeit bis zu Vorschlägen</translation>
    </message>
    <message>
        <source>Editing:</source>
        <translation>Bearbeiten:</translation>
    </message>
    <message>
        <source>Font of the code</source>
        <translation>Schrift des Codes</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>Sch&amp;rift:</translation>
    </message>
    <message>
        <source>Gutter:</source>
        <translation>Randspalte:</translation>
    </message>
    <message>
        <source>&amp;Highlight the current line</source>
        <translation>Aktue&amp;lle Zeile hervorheben</translation>
    </message>
    <message>
        <source>Indent braces automatically</source>
        <translation>Geschweifte Klammern selbsttätig einrücken</translation>
    </message>
    <message>
        <source>Indent new lines automatically</source>
        <translation>Neue Zeilen selbsttätig einrücken</translation>
    </message>
    <message>
        <source>Indent to the ne&amp;xt tab stop</source>
        <translation>Bis zum nächsten Tabulator einrücken</translation>
    </message>
    <message>
        <source>In&amp;dent width:</source>
        <translation>Ein&amp;zugsbreite:</translation>
    </message>
    <message>
        <source>Indent with spaces</source>
        <translation>Mit Leerzeichen einrücken</translation>
    </message>
    <message>
        <source>Indenting:</source>
        <translation>Einrücken:</translation>
    </message>
    <message>
        <source>Insert closing &amp;braces</source>
        <translation>Schließende geschweifte Kla&amp;mmern einsetzen</translation>
    </message>
    <message>
        <source>Insert closing &amp;parentheses</source>
        <translation>S&amp;chließende Klammern einsetzen</translation>
    </message>
    <message>
        <source>&amp;Line height:</source>
        <translation>Zeilen&amp;höhe:</translation>
    </message>
    <message>
        <source>&amp;Show a page guide at column</source>
        <translation>&amp;Seitenlinie zeigen in Spalte</translation>
    </message>
    <message>
        <source>M&amp;ark lines with findings</source>
        <translation>Zeilen mit Befunden &amp;kennzeichnen</translation>
    </message>
    <message>
        <source>Show &amp;invisible characters</source>
        <translation>&amp;Unsichtbare Zeichen zeigen</translation>
    </message>
    <message>
        <source>Show line &amp;numbers</source>
        <translation>Zeilen&amp;nummern zeigen</translation>
    </message>
    <message>
        <source>Show the gutte&amp;r</source>
        <translation>Ran&amp;dspalte zeigen</translation>
    </message>
    <message>
        <source>Show the &amp;matching bracket</source>
        <translation>Zu&amp;gehörige Klammer zeigen</translation>
    </message>
    <message>
        <source>Suggest the language&apos;s &amp;keywords</source>
        <translation>Schlüsselwörter der S&amp;prache vorschlagen</translation>
    </message>
    <message>
        <source>Suggest while t&amp;yping, after</source>
        <translation>Beim T&amp;ippen vorschlagen, nach</translation>
    </message>
    <message>
        <source>&amp;Tab width:</source>
        <translation>&amp;Tabulatorbreite:</translation>
    </message>
    <message>
        <source>&amp;Underline the findings</source>
        <translation>Befunde unterstreichen</translation>
    </message>
    <message>
        <source>Width at least:</source>
        <translation>Breite mindestens:</translation>
    </message>
    <message>
        <source>&amp;Wrap lines</source>
        <translation>Zeilen um&amp;brechen</translation>
    </message>
</context>
<context>
    <name>Placeholder</name>
    <message>
        <source>Brand</source>
        <translation>Marke</translation>
    </message>
    <message>
        <source>Buy Now Price</source>
        <translation>Sofortkaufpreis</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Condition</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Condition in Detail</source>
        <translation>Zustand im Einzelnen</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>End of the Sale</source>
        <translation>Ende des Verkaufs</translation>
    </message>
    <message>
        <source>Handling Time</source>
        <translation>Bearbeitungszeit</translation>
    </message>
    <message>
        <source>Item Number</source>
        <translation>Artikelnummer</translation>
    </message>
    <message>
        <source>Legal Notice</source>
        <translation>Impressum</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Artikelstandort</translation>
    </message>
    <message>
        <source>Manufacturer&apos;s Part Number</source>
        <translation>Herstellernummer</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>More about the Item</source>
        <translation>Mehr zum Artikel</translation>
    </message>
    <message>
        <source>More Pictures</source>
        <translation>Weitere Bilder</translation>
    </message>
    <message>
        <source>Part for a Property</source>
        <translation>Teil für eine Eigenschaft</translation>
    </message>
    <message>
        <source>Part for One Layout</source>
        <translation>Teil für ein Layout</translation>
    </message>
    <message>
        <source>Part for the Default Layout</source>
        <translation>Teil für das Standardlayout</translation>
    </message>
    <message>
        <source>Part with a Second Picture</source>
        <translation>Teil mit einem zweiten Bild</translation>
    </message>
    <message>
        <source>Parts of the Design</source>
        <translation>Teile des Designs</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Payment and Returns</source>
        <translation>Zahlung und Rücknahme</translation>
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
        <source>Picture 5</source>
        <translation>Bild 5</translation>
    </message>
    <message>
        <source>Picture 6</source>
        <translation>Bild 6</translation>
    </message>
    <message>
        <source>Picture 7</source>
        <translation>Bild 7</translation>
    </message>
    <message>
        <source>Picture 8</source>
        <translation>Bild 8</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Price and Sale</source>
        <translation>Preis und Verkauf</translation>
    </message>
    <message>
        <source>Price per Unit</source>
        <translation>Grundpreis</translation>
    </message>
    <message>
        <source>Product Code (EAN)</source>
        <translation>Produktcode (EAN)</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Return Costs</source>
        <translation>Kosten der Rücksendung</translation>
    </message>
    <message>
        <source>Return Period</source>
        <translation>Rückgabefrist</translation>
    </message>
    <message>
        <source>Returns</source>
        <translation>Rücknahme</translation>
    </message>
    <message>
        <source>Seller</source>
        <translation>Verkäufer</translation>
    </message>
    <message>
        <source>Seller&apos;s Address</source>
        <translation>Anschrift des Verkäufers</translation>
    </message>
    <message>
        <source>Seller&apos;s Email</source>
        <translation>E-Mail des Verkäufers</translation>
    </message>
    <message>
        <source>Seller&apos;s Name</source>
        <translation>Name des Verkäufers</translation>
    </message>
    <message>
        <source>Seller&apos;s Phone</source>
        <translation>Telefon des Verkäufers</translation>
    </message>
    <message>
        <source>Shipping</source>
        <translation>Versand</translation>
    </message>
    <message>
        <source>Shipping Abroad</source>
        <translation>Versand ins Ausland</translation>
    </message>
    <message>
        <source>Shipping Costs</source>
        <translation>Versandkosten</translation>
    </message>
    <message>
        <source>Shipping Method</source>
        <translation>Versandart</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Starting Price</source>
        <translation>Startpreis</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Terms of Business</source>
        <translation>Geschäftsbedingungen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Value of a Property</source>
        <translation>Wert einer Eigenschaft</translation>
    </message>
    <message>
        <source>Warranty</source>
        <translation>Gewährleistung</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
</context>
</TS>
