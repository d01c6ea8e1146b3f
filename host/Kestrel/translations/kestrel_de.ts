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
    <message>
        <source>Deleting %1 with its processors</source>
        <translation>%1 wird mit seinen Prozessoren gelöscht</translation>
    </message>
    <message>
        <source>%1, since %2 (%3 s)</source>
        <translation>%1, seit %2 (%3 s)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 done</source>
        <translation>%1 erledigt</translation>
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
    <name>CEarlierLists</name>
    <message>
        <source>Earlier lists</source>
        <translation>Frühere Listen</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Processors</source>
        <translation>Prozessoren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>There is no earlier list.</source>
        <translation>Es gibt keine frühere Liste.</translation>
    </message>
    <message>
        <source>Restoring…</source>
        <translation>Wird wiederhergestellt …</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>It cannot be read as a list.</source>
        <translation>Sie ist nicht als Liste lesbar.</translation>
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
    <name>CGuardField</name>
    <message>
        <source>Held up %1×, last for %2 ms</source>
        <translation>%1× aufgehalten, zuletzt %2 ms</translation>
    </message>
    <message>
        <source>Held up %1×, last for %2 ms by %3</source>
        <translation>%1× aufgehalten, zuletzt %2 ms durch %3</translation>
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
    <name>CJournalField</name>
    <message>
        <source>Journal not written: %1</source>
        <translation>Journal wird nicht geschrieben: %1</translation>
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
        <translation>Liste &amp;durchsuchen</translation>
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
    <name>CRefusedList</name>
    <message>
        <source>Refused list</source>
        <translation>Abgelehnte Liste</translation>
    </message>
    <message>
        <source>Nothing of it can be read.</source>
        <translation>Nichts davon ist lesbar.</translation>
    </message>
    <message>
        <source>The list was refused at the start:</source>
        <translation>Die Liste wurde beim Start abgelehnt:</translation>
    </message>
    <message>
        <source>What can be read: %1, %2; %3.</source>
        <translation>Lesbar sind %1, %2; %3.</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n Gruppe</numerusform>
            <numerusform>%n Gruppen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor</numerusform>
            <numerusform>%n Prozessoren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n fault(s)</source>
        <translation>
            <numerusform>%n Fehler</numerusform>
            <numerusform>%n Fehler</numerusform>
        </translation>
    </message>
    <message>
        <source>Use this list?</source>
        <translation>Diese Liste verwenden?</translation>
    </message>
    <message>
        <source>The journal says why.</source>
        <translation>Der Grund steht im Journal.</translation>
    </message>
    <message>
        <source>The refused file is kept in the same folder.</source>
        <translation>Die abgelehnte Datei wird im selben Ordner aufbewahrt.</translation>
    </message>
</context>
<context>
    <name>CReportAction</name>
    <message>
        <source>Save &amp;report…</source>
        <translation>Be&amp;richt speichern…</translation>
    </message>
</context>
<context>
    <name>CReportSaver</name>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Reports (*.tar.gz)</source>
        <translation>Berichte (*.tar.gz)</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Bericht gespeichert: %1</translation>
    </message>
    <message>
        <source>The report was not saved.
%1: %2</source>
        <translation>Der Bericht wurde nicht gespeichert.
%1: %2</translation>
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
        <translation>&amp;Farbschema</translation>
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
    <name>CUndoMenu</name>
    <message>
        <source>Chief of its &amp;group</source>
        <translation>Chief seiner &amp;Gruppe</translation>
    </message>
    <message>
        <source>&amp;Earlier lists…</source>
        <translation>&amp;Frühere Listen …</translation>
    </message>
    <message>
        <source>Use this list &amp;nevertheless…</source>
        <translation>Liste &amp;trotzdem verwenden …</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Redo of “%1”</source>
        <translation>Wiederholen von „%1“</translation>
    </message>
    <message>
        <source>Undo of “%1”</source>
        <translation>Rückgängigmachen von „%1“</translation>
    </message>
    <message>
        <source>“%1” cannot be taken back: %2.</source>
        <translation>„%1“ lässt sich nicht zurücknehmen: %2.</translation>
    </message>
    <message>
        <source>Leave this step out, so that the ones before it can be taken back?</source>
        <translation>Diesen Schritt auslassen, damit sich die davor zurücknehmen lassen?</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>CountText</name>
    <message numerus="yes">
        <source>%n processor(s) selected</source>
        <translation>
            <numerusform>%n Prozessor ausgewählt</numerusform>
            <numerusform>%n Prozessoren ausgewählt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n group(s) selected</source>
        <translation>
            <numerusform>%n Gruppe ausgewählt</numerusform>
            <numerusform>%n Gruppen ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 selected</source>
        <translation>%1 und %2 ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n Gruppe</numerusform>
            <numerusform>%n Gruppen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor</numerusform>
            <numerusform>%n Prozessoren</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, hidden by the search</source>
        <translation>%1, durch die Suche ausgeblendet</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n of them hidden by the search</source>
        <translation>
            <numerusform>%1, %n davon durch die Suche ausgeblendet</numerusform>
            <numerusform>%1, %n davon durch die Suche ausgeblendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s) found</source>
        <translation>
            <numerusform>%1 von %n Prozessor gefunden</numerusform>
            <numerusform>%1 von %n Prozessoren gefunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s)</source>
        <translation>
            <numerusform>%1 von %n Prozessor</numerusform>
            <numerusform>%1 von %n Prozessoren</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 found</source>
        <translation>%1 und %2 gefunden</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
</context>
<context>
    <name>RefusalText</name>
    <message>
        <source>Add the processor %1</source>
        <translation>Prozessor %1 hinzufügen</translation>
    </message>
    <message>
        <source>Add simulators</source>
        <translation>Simulatoren hinzufügen</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Ungroup %1</source>
        <translation>Gruppierung %1 aufheben</translation>
    </message>
    <message>
        <source>Rename to %1</source>
        <translation>Umbenennen in %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Chief of %1</source>
        <translation>Chief von %1</translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation>%1 importieren</translation>
    </message>
    <message>
        <source>Use the refused list</source>
        <translation>Abgelehnte Liste verwenden</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>%1 exportieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>the list is locked</source>
        <translation>die Liste ist gesperrt</translation>
    </message>
    <message>
        <source>refresh is blocked</source>
        <translation>das Aktualisieren ist blockiert</translation>
    </message>
    <message>
        <source>a job is still running</source>
        <translation>ein Auftrag läuft noch</translation>
    </message>
    <message>
        <source>the control library cannot do that</source>
        <translation>die Steuerungsbibliothek kann das nicht</translation>
    </message>
    <message>
        <source>the name is empty</source>
        <translation>der Name ist leer</translation>
    </message>
    <message>
        <source>the name holds line ends or control characters</source>
        <translation>der Name enthält Zeilenenden oder Steuerzeichen</translation>
    </message>
    <message>
        <source>the name begins or ends with a blank</source>
        <translation>der Name beginnt oder endet mit einem Leerzeichen</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>der Name enthält keine sichtbaren Zeichen</translation>
    </message>
    <message>
        <source>the name turns the direction of the text around</source>
        <translation>der Name kehrt die Schreibrichtung um</translation>
    </message>
    <message>
        <source>a name may not hold any of %1</source>
        <translation>ein Name darf keines der Zeichen %1 enthalten</translation>
    </message>
    <message>
        <source>the name is longer than %1 bytes</source>
        <translation>der Name ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>it is not in the list any more</source>
        <translation>der Eintrag ist nicht mehr in der Liste</translation>
    </message>
    <message>
        <source>the group is not in the list any more</source>
        <translation>die Gruppe ist nicht mehr in der Liste</translation>
    </message>
    <message>
        <source>the processor is not in the group</source>
        <translation>der Prozessor ist nicht in der Gruppe</translation>
    </message>
    <message>
        <source>%1 runs the open project</source>
        <translation>%1 führt das offene Projekt aus</translation>
    </message>
    <message>
        <source>the list has a node of that id</source>
        <translation>die Liste hat schon einen Eintrag mit dieser Kennung</translation>
    </message>
    <message>
        <source>the group carries more numbers than a list file takes</source>
        <translation>die Gruppe trägt mehr Nummern, als eine Listendatei fasst</translation>
    </message>
    <message>
        <source>the list has all the groups that it can have</source>
        <translation>die Liste fasst keine weiteren Gruppen</translation>
    </message>
    <message>
        <source>the list has all the processors that it can have</source>
        <translation>die Liste fasst keine weiteren Prozessoren</translation>
    </message>
    <message>
        <source>it is in the list already</source>
        <translation>der Prozessor ist schon in der Liste</translation>
    </message>
    <message>
        <source>there is no simulator of that type or output</source>
        <translation>es gibt keinen Simulator dieses Typs oder Ausgangs</translation>
    </message>
    <message>
        <source>more than two simulators cannot exist</source>
        <translation>mehr als zwei Simulatoren sind nicht möglich</translation>
    </message>
    <message>
        <source>the address is reserved</source>
        <translation>die Adresse ist reserviert</translation>
    </message>
    <message>
        <source>a processor of the list has the address</source>
        <translation>ein Prozessor der Liste hat die Adresse</translation>
    </message>
    <message>
        <source>nothing answers there</source>
        <translation>dort antwortet nichts</translation>
    </message>
    <message>
        <source>the file does not exist any more</source>
        <translation>die Datei gibt es nicht mehr</translation>
    </message>
    <message>
        <source>the file is not the one that was refused</source>
        <translation>die Datei ist nicht mehr dieselbe wie die abgelehnte</translation>
    </message>
    <message>
        <source>no list was refused</source>
        <translation>keine Liste wurde abgelehnt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Add the group “%1”</source>
        <translation>Gruppe „%1“ hinzufügen</translation>
    </message>
    <message>
        <source>Delete the group “%1”</source>
        <translation>Gruppe „%1“ löschen</translation>
    </message>
    <message>
        <source>Restore an earlier list</source>
        <translation>Frühere Liste wiederherstellen</translation>
    </message>
    <message>
        <source>the file is no good list</source>
        <translation>die Datei ist keine gültige Liste</translation>
    </message>
    <message>
        <source>the file holds more than the list takes</source>
        <translation>die Datei enthält mehr, als die Liste fasst</translation>
    </message>
    <message>
        <source>the file was not written</source>
        <translation>die Datei wurde nicht geschrieben</translation>
    </message>
    <message>
        <source>the file was not replaced</source>
        <translation>die Datei wurde nicht ersetzt</translation>
    </message>
    <message>
        <source>the list before was not kept</source>
        <translation>die bisherige Liste wurde nicht aufbewahrt</translation>
    </message>
    <message>
        <source>another program has the file open</source>
        <translation>ein anderes Programm hat die Datei geöffnet</translation>
    </message>
    <message>
        <source>nothing of the file can be read</source>
        <translation>nichts von der Datei ist lesbar</translation>
    </message>
</context>
<context>
    <name>StepName</name>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor löschen</numerusform>
            <numerusform>%n Prozessoren löschen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n group(s)</source>
        <translation>
            <numerusform>%n Gruppe löschen</numerusform>
            <numerusform>%n Gruppen löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete %1 and %2</source>
        <translation>%1 und %2 löschen</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n Gruppe</numerusform>
            <numerusform>%n Gruppen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor</numerusform>
            <numerusform>%n Prozessoren</numerusform>
        </translation>
    </message>
    <message>
        <source>Ungroup %1</source>
        <translation>Gruppierung %1 aufheben</translation>
    </message>
    <message numerus="yes">
        <source>Ungroup %n group(s)</source>
        <translation>
            <numerusform>%n Gruppierung aufheben</numerusform>
            <numerusform>%n Gruppierungen aufheben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Group %n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor gruppieren</numerusform>
            <numerusform>%n Prozessoren gruppieren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Add %n simulator(s)</source>
        <translation>
            <numerusform>%n Simulator hinzufügen</numerusform>
            <numerusform>%n Simulatoren hinzufügen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor verschieben</numerusform>
            <numerusform>%n Prozessoren verschieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Add the processor %1</source>
        <translation>Prozessor %1 hinzufügen</translation>
    </message>
    <message>
        <source>Rename to %1</source>
        <translation>Umbenennen in %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Chief of %1</source>
        <translation>Chief von %1</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Use the refused list</source>
        <translation>Abgelehnte Liste verwenden</translation>
    </message>
    <message>
        <source>Delete the group “%1”</source>
        <translation>Gruppe „%1“ löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete the group “%1” with %n processor(s)</source>
        <translation>
            <numerusform>Gruppe „%1“ mit %n Prozessor löschen</numerusform>
            <numerusform>Gruppe „%1“ mit %n Prozessoren löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Add the group “%1”</source>
        <translation>Gruppe „%1“ hinzufügen</translation>
    </message>
    <message>
        <source>Restore an earlier list</source>
        <translation>Frühere Liste wiederherstellen</translation>
    </message>
</context>
</TS>
