<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CAddProcessorDlg</name>
    <message>
        <source>Add a processor</source>
        <translation>Prozessor hinzufügen</translation>
    </message>
</context>
<context>
    <name>CAddSimulatorDlg</name>
    <message>
        <source>Add simulators</source>
        <translation>Simulatoren hinzufügen</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>1G port</source>
        <translation>1G-Port</translation>
    </message>
    <message>
        <source>5G port</source>
        <translation>5G-Port</translation>
    </message>
    <message>
        <source>10G fiber</source>
        <translation>10G-Glasfaser</translation>
    </message>
</context>
<context>
    <name>CBaseDialog</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>CBusyIndicator</name>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>%1 – since %2 (%3 s)</source>
        <translation>%1 – seit %2 (%3 s)</translation>
    </message>
    <message>
        <source>Busy</source>
        <translation>Beschäftigt</translation>
    </message>
    <message>
        <source>Scanning the network</source>
        <translation>Das Netz wird durchsucht</translation>
    </message>
    <message>
        <source>Adding the processor at %1</source>
        <translation>Prozessor %1 wird hinzugefügt</translation>
    </message>
    <message>
        <source>Deleting %1</source>
        <translation>%1 wird gelöscht</translation>
    </message>
    <message>
        <source>Importing %1</source>
        <translation>%1 wird importiert</translation>
    </message>
</context>
<context>
    <name>CDialogTitleBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>CFinalSave</name>
    <message>
        <source>List not saved</source>
        <translation>Liste nicht gespeichert</translation>
    </message>
    <message>
        <source>The list could not be saved at its place.</source>
        <translation>Die Liste konnte nicht an ihrem Ort gespeichert werden.</translation>
    </message>
    <message>
        <source>&amp;Save elsewhere…</source>
        <translation>An anderem Ort &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Quit without saving</source>
        <translation>Ohne Speichern &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Save the list</source>
        <translation>Liste speichern</translation>
    </message>
</context>
<context>
    <name>CHostMenu</name>
    <message>
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>Projekt ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Close project</source>
        <translation>Projekt &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>&amp;Liste</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Chief-&amp;Member mode</source>
        <translation>Chief-&amp;Member-Modus</translation>
    </message>
    <message>
        <source>&amp;Lock the list</source>
        <translation>Liste &amp;sperren</translation>
    </message>
    <message>
        <source>&amp;Block refresh</source>
        <translation>Aktualisieren &amp;blockieren</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>L&amp;anguage</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Name of the project:</source>
        <translation>Name des Projekts:</translation>
    </message>
</context>
<context>
    <name>CHostStatus</name>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Project %1</source>
        <translation>Projekt %1</translation>
    </message>
    <message>
        <source>Chief-Member mode</source>
        <translation>Chief-Member-Modus</translation>
    </message>
    <message>
        <source>List locked</source>
        <translation>Liste gesperrt</translation>
    </message>
    <message>
        <source>Refresh blocked</source>
        <translation>Aktualisieren blockiert</translation>
    </message>
    <message>
        <source>List not read: %1</source>
        <translation>Liste nicht gelesen: %1</translation>
    </message>
    <message>
        <source>List not saved: %1</source>
        <translation>Liste nicht gespeichert: %1</translation>
    </message>
</context>
<context>
    <name>CIPEdit</name>
    <message>
        <source>Part %1 of 4 of the address</source>
        <translation>Teil %1 von 4 der Adresse</translation>
    </message>
    <message>
        <source>The address is incomplete.</source>
        <translation>Die Adresse ist unvollständig.</translation>
    </message>
    <message>
        <source>This address is in use or reserved.</source>
        <translation>Diese Adresse ist belegt oder reserviert.</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Each part is a number from 0 to 255.</source>
        <translation>Jeder Teil ist eine Zahl von 0 bis 255.</translation>
    </message>
</context>
<context>
    <name>CJournalDock</name>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Show reading calls</source>
        <translation>Auch lesende Aufrufe</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>CJournalModel</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>Thread</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Call or message</source>
        <translation>Aufruf oder Nachricht</translation>
    </message>
</context>
<context>
    <name>CKeyWays</name>
    <message>
        <source>&amp;Search the list</source>
        <translation>Liste durch&amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Next part of the window</source>
        <translation>&amp;Nächster Teil des Fensters</translation>
    </message>
    <message>
        <source>&amp;Previous part of the window</source>
        <translation>&amp;Voriger Teil des Fensters</translation>
    </message>
</context>
<context>
    <name>CMainWindow</name>
    <message>
        <source>Quitting as soon as the running job has ended…</source>
        <translation>Wird beendet, sobald der laufende Auftrag fertig ist …</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
</context>
<context>
    <name>CProcessorTree</name>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>Gruppierung aufheben</translation>
    </message>
    <message>
        <source>Move to group</source>
        <translation>In Gruppe verschieben</translation>
    </message>
    <message>
        <source>Remove from group</source>
        <translation>Aus Gruppe entfernen</translation>
    </message>
    <message>
        <source>Delete processors</source>
        <translation>Prozessoren löschen</translation>
    </message>
    <message>
        <source>Do you want to delete all the selected processors?</source>
        <translation>Sollen alle ausgewählten Prozessoren gelöscht werden?</translation>
    </message>
    <message>
        <source>Delete groups and processors</source>
        <translation>Gruppen und Prozessoren löschen</translation>
    </message>
    <message>
        <source>Do you want to delete all the selected groups and processors?</source>
        <translation>Sollen alle ausgewählten Gruppen und Prozessoren gelöscht werden?</translation>
    </message>
    <message>
        <source>Delete group and processors</source>
        <translation>Gruppe und Prozessoren löschen</translation>
    </message>
    <message>
        <source>Delete group only</source>
        <translation>Nur die Gruppe löschen</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>Chief-Member mode enabled. This processor has been set as Chief.</source>
        <translation>Der Chief-Member-Modus ist an. Dieser Prozessor ist der Chief.</translation>
    </message>
    <message>
        <source>Processor redundancy enabled. This processor has been set as Primary.</source>
        <translation>Die Redundanz ist an. Dieser Prozessor ist der Primary.</translation>
    </message>
    <message>
        <source>Processor redundancy enabled. This processor has been set as Backup.</source>
        <translation>Die Redundanz ist an. Dieser Prozessor ist das Backup.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>Primary</source>
        <translation>Primary</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>project %1</source>
        <translation>Projekt %1</translation>
    </message>
    <message>
        <source>%1, group, 1 processor</source>
        <translation>%1, Gruppe, 1 Prozessor</translation>
    </message>
    <message numerus="yes">
        <source>%1, group, %n processors</source>
        <translation>
            <numerusform>%1, Gruppe, %n Prozessor</numerusform>
            <numerusform>%1, Gruppe, %n Prozessoren</numerusform>
        </translation>
    </message>
    <message>
        <source>has a Chief</source>
        <translation>hat einen Chief</translation>
    </message>
    <message>
        <source>Chief %1</source>
        <translation>Chief %1</translation>
    </message>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>Chief</source>
        <translation>Chief</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>Discovered processors</source>
        <translation>Gefundene Prozessoren</translation>
    </message>
    <message>
        <source>Simulators</source>
        <translation>Simulatoren</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>Name von %1</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeDelegate</name>
    <message>
        <source>IP: %1</source>
        <translation>IP: %1</translation>
    </message>
    <message>
        <source>Type: </source>
        <translation>Typ: </translation>
    </message>
    <message>
        <source>Project: </source>
        <translation>Projekt: </translation>
    </message>
    <message>
        <source>UID: </source>
        <translation>UID: </translation>
    </message>
    <message>
        <source>Type: --</source>
        <translation>Typ: --</translation>
    </message>
    <message>
        <source>Project: --</source>
        <translation>Projekt: --</translation>
    </message>
    <message>
        <source>UID: --</source>
        <translation>UID: --</translation>
    </message>
    <message>
        <source>All processors(%1)</source>
        <translation>Alle Prozessoren(%1)</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeToolBar</name>
    <message>
        <source>Add simulators</source>
        <translation>Simulatoren hinzufügen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Add group</source>
        <translation>Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Add a processor</source>
        <translation>Prozessor hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeView</name>
    <message>
        <source>Group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Export sucessfully.</source>
        <translation>Der Export war erfolgreich.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Import sucessfully.</source>
        <translation>Der Import war erfolgreich.</translation>
    </message>
    <message>
        <source>Overwrite confirmation</source>
        <translation>Überschreiben bestätigen</translation>
    </message>
    <message>
        <source>This operation will overwrite the processor list.
Continue?</source>
        <translation>Dieser Vorgang überschreibt die Liste der Prozessoren.
Fortfahren?</translation>
    </message>
    <message>
        <source>Cannot import file</source>
        <translation>Die Datei kann nicht importiert werden</translation>
    </message>
    <message>
        <source>The currently imported file is invalid.</source>
        <translation>Die importierte Datei ist ungültig.</translation>
    </message>
    <message>
        <source>Overwrite failed.</source>
        <translation>Das Überschreiben ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Copy failed.</source>
        <translation>Das Kopieren ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The number of processors involved exceeds the limit.</source>
        <translation>Die Anzahl der Prozessoren überschreitet die Grenze.</translation>
    </message>
    <message>
        <source>Discovered</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Simulator</source>
        <translation>Simulator</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Close search box</source>
        <translation>Suche schließen</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Listen</translation>
    </message>
</context>
<context>
    <name>CSearchBox</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>CThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>&amp;High contrast</source>
        <translation>&amp;Hoher Kontrast</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
</context>
</TS>
