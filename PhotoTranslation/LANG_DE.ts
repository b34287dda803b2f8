<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>Über Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>Repariert beschädigte Fotos.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>Systemversion</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Erstellt mit Qt %1 (LGPL 3), libheif (LGPL 3) und libarchive (BSD). Die Lizenzen liegen der Dokumentation des Programms bei.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged JPEG. 
Click Next to   add a &apos;sample JPEG&apos; of the same 
format, nshot using the same device.The sample and 
the damaged JPEGs remain unchanged during 
repair process.</source>
        <translation>Erweiterte Reparatur

Mit dieser Option reparieren Sie stark beschädigte JPEGs. 
Klicken Sie auf „Weiter“ und fügen Sie ein „Beispiel-JPEG“ 
desselben Formats hinzu, mit demselben Gerät aufgenommen. 
Das Beispiel und die beschädigten JPEGs 
bleiben dabei unverändert.</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>Erweiterte Reparatur

Mit dieser Option reparieren Sie stark beschädigte HEICs. 
Klicken Sie auf „Weiter“ und fügen Sie ein „Beispiel-HEIC </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation> desselben Formats hinzu. Das Beispiel und das beschädigte HEIC bleiben bei der Reparatur unverändert.</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>“</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>Ein gutes Beispiel öffnet sich in jedem Betrachter und stammt vom selben Telefon, aufgenommen wie das beschädigte Foto: mit derselben Kamera des Telefons, denselben Einstellungen und gleich gehalten.</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>Ein gutes Beispiel öffnet sich in jedem Betrachter und stammt von derselben Kamera oder demselben Telefon, aufgenommen wie das beschädigte Foto: mit denselben Einstellungen und gleich gehalten.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Erweiterte Reparatur</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>Vorhandene Datei</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>Dateiname:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>Umbenennen in:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>Alle umbenennen</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>Alle überschreiben</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Alle überspringen</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>Rückkehr</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Dadurch werden die Reparaturergebnisse verworfen.
Möchten Sie zum vorigen Bildschirm zurückkehren?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>BrowseRepair</name>
    <message>
        <source>Selected destination path is read-only (restricted by the operating system</source>
        <translation>Der gewählte Zielordner ist schreibgeschützt (vom Betriebssystem eingeschränkt). </translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>Wählen Sie einen anderen Speicherort.</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>Klicken Sie, um Fotos hinzuzufügen, oder ziehen Sie JPEG-Dateien hierher.</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>Zu reparierende Dateien</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>Reparaturergebnisse</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Auswahl der zu öffnenden Dateien</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  Dateiname</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Pfad</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> Größe (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Geändert am</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Erstellt am</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   Dateiname</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Pfad</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> Größe (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>Geändert am</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>Erstellt am</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>Diese Datei steht bereits in der Liste.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>Ü&amp;bersicht</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>E-&amp;Mail an den Support</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>Anfrage senden</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>Wissensdatenbank</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>Nach &amp;Updates suchen...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>&amp;Über Kesmira</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Reparieren</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Stopp</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>Re&amp;parierte Fotos speichern...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>Weitere Tools</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>Daten wiederherstellen</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>Laufwerk überwachen</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>Video reparieren</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>Fotos wiederherstellen</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>Dieses Programm ist nicht installiert.</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>Klicken Sie auf „Reparierte Fotos speichern“, um alle reparierten Fotos zu sichern. Klicken Sie auf eine Datei, um eine Vorschau zu sehen. </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>Die Reparatur ist abgeschlossen.</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Erweiterte Reparatur</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>Datei wird repariert: </translation>
    </message>
    <message>
        <source>of</source>
        <translation>von</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Repariert</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>Extrahiert</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatur</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>Erweiterte Reparatur</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>Ausgewählte Fotos werden repariert</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>Je nach Anzahl und Größe der Fotos kann dies einige Zeit dauern. Bitte warten Sie, bis der Vorgang abgeschlossen ist.</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Dateiname</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> Typ</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> Auflösung</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>Ausgewählte Fotos werden repariert</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>Datei wird repariert: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Auswahl des Ordners</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>Durchsucht beschädigte JPEG-Fotos gründlicher. Teile eines geretteten Bildes können geraten sein.</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>&amp;Tiefenrettung</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>Tiefenrettung: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>Gerettet</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>Ergebnisse, die nicht gespeichert sind und verloren gingen: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>Tiefenrettung</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>Kein Format, das sich reparieren lässt:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>Ordner lassen sich nicht ablegen, daher wurde nichts hinzugefügt:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>Nur JPEG-Dateien lassen sich ablegen; nehmen Sie „Hinzufügen“ für:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Das Bild wird gelesen...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>Das zuvor Begonnene wird noch beendet und gelöscht; danach startet der Lauf.</translation>
    </message>
</context>
<context>
    <name>BrowseRepairObj</name>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Click on &quot;Add File&quot; to add corrupt JPEG files for repair.You can also simply &quot;Drag &amp; Drop&quot; them in space above.</source>
        <translation>Klicken Sie auf „Hinzufügen“, um beschädigte JPEG-Dateien hinzuzufügen. Sie können sie auch in den Bereich oben ziehen.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>Aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Reparierte Fotos speichern</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>Miniaturen zeigen</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>Das Update kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>Das Update ist leer.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>Das Update ist beschädigt.</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>Das Update enthält etwas, das nicht hineingehört, und wurde abgelehnt.</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>Das Update kann nicht entpackt werden: Es ist beschädigt, oder der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>Das installierte Programm ist nicht mehr an seinem Ort.</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>Das Programm ist dort installiert, wo Sie es nicht ändern können. Für das Update ist zuständig, wer es installiert hat.</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>Das Update enthält das Programm nicht.</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>Die neue Version kann nicht eingesetzt werden: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>Beim Speichern kommen Datum, Ort, Ausrichtung und Farbprofil der Fotos aus den beschädigten Dateien, soweit sie dort heil sind.</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>&amp;Kameradaten zurückschreiben</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>Es wird nach einer neuen Version gesucht...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>Programmende</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Möchten Sie das Programm wirklich beenden?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>CompletionMsgObj</name>
    <message>
        <source>Repair Complete</source>
        <translation>Abschluss der Reparatur</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>Die Reparatur ist abgeschlossen.

Vorhandene Miniaturen stehen als „Dateiname_[Tx]“ in der Liste.
Miniaturen sind kleine Bilder großer JPEGs.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Download</name>
    <message>
        <source>The server sends more than an update can hold.</source>
        <translation>Der Server sendet mehr, als ein Update enthalten kann.</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>Die Adresse der Aktualisierung ist nicht sicher.</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>Der Server braucht zu lange.</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DrgDrp</name>
    <message>
        <source>Remove file</source>
        <translation>Datei entfernen</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Angehakte entfernen</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>Vorhandener Ordner</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>Vorhandener Ordner</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>Ordnername: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>Umbenennen in: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>es ist kein HEIC oder enthält nur Bildkacheln</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>die Datei enthält nur Bildkacheln oder wurde nicht neu geschrieben</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>der Index der Bildkacheln ist beschädigt</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>das Bild kann nicht dekodiert werden</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>das Bild hat mehr Pixel, als angezeigt werden können</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>für das Bild reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>der Dekoder kann nicht gestartet werden</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>der Dekoder hat abgebrochen: Die Datei ist beschädigt oder verlangt zu viel</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>eine Box, die das Bild beschreibt, ist beschädigt</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>kein Element der Datei fügt die Bildkacheln zusammen</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>das Bild kann in diesem Format nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>das Dekodieren dauerte zu lange</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>das Dekodieren wurde abgebrochen</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 Datei, %1 angehakt</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n Datei, %1 angehakt</numerusform>
            <numerusform>%n Dateien, %1 angehakt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>Datei entfernen</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>Nimmt die gewählte Datei aus der Liste. Die Datei selbst bleibt, wo sie ist.</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Angehakte entfernen</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>Nimmt die angehakten Dateien aus der Liste. Die Dateien selbst bleiben, wo sie sind.</translation>
    </message>
</context>
<context>
    <name>MessageBoxObj</name>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PanelOpener</name>
    <message>
        <source>A double-click, Return or F11 shows the result in full.</source>
        <translation>Doppelklick, Eingabetaste oder F11 zeigt das Ergebnis ganz.</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>Die angezeigte Datei wird nicht ersetzt. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatur</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>Das kleine Bild, das die Kamera in die Datei gelegt hat. Zum Vergleich: Es zeigt dieselbe Szene.</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Voriges Bild</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Nächstes Bild</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Anpassen</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 von %3)</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Das Bild wird gelesen...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>Diese Datei kann nicht angezeigt werden: %1.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 Pixel</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>JPEG, wie es ist (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC, das andere Programme öffnen (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>Der Name muss auf .jpg oder .png enden.</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>Der Name muss auf .png, .jpg oder .heic enden.</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>Dieses Bild ist nicht mehr da. Zurückgehen und ein neuer Start entfernen Ergebnisse, die nicht gespeichert wurden.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Großes Update</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Kleines Update</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Kein Update verfügbar.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>Verstrichene Zeit: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB von </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB kopiert) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Übertragungsrate: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/s </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>Dieses Programm wird von dem System aktualisiert, das es installiert hat.</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>Bitte warten Sie. Der Vorgang dauert </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>Sekunden bis wenige Minuten. </translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>Diese Aktualisierung stammt nicht vom Hersteller und wurde nicht installiert.</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>Auswahl des Beispiels</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>Beispiel-HEIC hinzufügen:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Beispiel-JPEG hinzufügen:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>Beschädigte Datei: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Erweiterte Reparatur</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Beispiel-JPEG hinzufügen:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> Auf alle Dateien desselben Formats anwenden.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>aus den eigenen Segmenten neu aufgebaut</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>ein Bild in der Datei</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>ab dem ersten brauchbaren Segment neu aufgebaut</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>mit dem Kopf des Beispiels neu aufgebaut</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>über den Index der Datei gefunden</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>beim Durchsuchen der Datei gefunden</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>der Index wurde neu geschrieben</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>Dieses Dateiformat kann nicht repariert werden.</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>Der Dateikopf ist verloren. Ein Beispiel derselben Kamera kann helfen.</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>Was neu aufgebaut werden konnte, lässt sich nicht als Bild öffnen.</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>Die Datei enthält kein Vorschaubild.</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>Die Zahl der Bildkacheln ist keine der bekannten.</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>Der Index ist verloren. Ein Beispiel derselben Kamera kann helfen.</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>Der Datenträger ist voll oder schreibgeschützt.</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>Vor dem Ende dieser Datei gestoppt.</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>Ersetzte Quantisierungstabellen: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>Ersetzte Huffman-Tabellen: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>Unschädlich gemachte ungültige Bilddaten-Bytes: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>Übersprungene Bytes: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>Aus dieser Datei ließ sich nichts gewinnen.</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>Folgen einer Übertragung im Textmodus behoben</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>Bilddaten gefunden</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>Frame-Header ausgebessert</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>Restart-Intervall ermittelt</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>Huffman-Tabellen durch bekannte ersetzt</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>Huffman-Anzahlen ausgebessert</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>Huffman-Symbole ermittelt</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>Größe ermittelt</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>Quantisierungstabellen ausgebessert</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>ungültige Codes ausgebessert</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>beschädigte Bytes ausgebessert</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>Restart-Intervalle an ihren Platz gesetzt</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>verschobene Teile zurückgerückt</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>exakt</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>wahrscheinlich</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>geraten</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>Die Datei ist zu groß für die Tiefenrettung.</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>Die Tiefenrettung hat nichts Besseres gefunden.</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>Gerettet (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>Gerettet: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>Die Datei lässt sich öffnen, wie sie ist.</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>Die Datei enthält keine Bilddaten.</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>Das Beispiel passt nicht zu dieser Datei.</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>Nur die Bildkacheln sind da, die kein Programm öffnet. Ein Beispiel derselben Kamera kann helfen.</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>Die Tiefenrettung kann mehr zurückbringen.</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>Das Bild ist vollständig.</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>Nur ein Teil des Bildes ist da (etwa %1 %).</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>Das Bild ist zweifelhaft: Teile davon können falsch sein.</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>Ihre Bytes sind von einem anderen Format, als ihr Name sagt: %1.</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>Auch ausgeblendete angehakte Dateien werden gespeichert.</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 Datei:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n Datei:</numerusform>
            <numerusform>%n Dateien:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>%n heil</numerusform>
            <numerusform>%n heil</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>%n vollständig</numerusform>
            <numerusform>%n vollständig</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>%n teilweise</numerusform>
            <numerusform>%n teilweise</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>%n zweifelhaft</numerusform>
            <numerusform>%n zweifelhaft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>%n ungeprüft</numerusform>
            <numerusform>%n ungeprüft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>%n nicht repariert</numerusform>
            <numerusform>%n nicht repariert</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>Zeigt nur diese Dateien oder wieder alle. Am Speichern ändert das nichts.</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>Weiter: In der Zeile „%1“ wählen und ein heiles Foto derselben Kamera angeben.</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>Weiter: Ein anderes heiles Foto derselben Kamera mit gleicher Größe versuchen.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>Weiter: Hier hilft nichts mehr; nach einer anderen Kopie der Datei suchen.</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>Weiter: Prüfen, ob die Datei noch da und lesbar ist, dann erneut reparieren.</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>Weiter: Platz schaffen, dann erneut reparieren.</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>Weiter: Zurückgehen und erneut reparieren.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>Weiter: Hier hilft nichts mehr; ein Programm für Rohdaten kann die Datei vielleicht noch öffnen.</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>Weiter: Einer Kopie die Endung dieses Formats geben und die Kopie reparieren.</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>Eine Miniatur: ein kleines Bild neben dem Foto.</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>Die Vorschau der Kamera; die Rohdaten daneben werden nicht repariert.</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>Es lässt sich nicht als Bild öffnen.</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>Hier ist nichts zu tun.</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>Weiter: Speichern. Mehr ist nicht zu tun.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>Weiter: Das Bild vor dem Speichern ansehen.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>Weiter: Das Bild vor dem Speichern ansehen; mehr davon lässt sich nicht finden.</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>Wie viel vom Bild da ist, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Quelle: %1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>Weiter: „%1“ wählen und ein heiles Foto derselben Kamera angeben.</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>Das Bild selbst kam nicht heraus, nur kleinere, die in der Datei lagen.</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>Anderes Beispiel versuchen</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Beispiel versuchen</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>Ungültige Datei</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>Ein wichtiger Marker fehlt. Die Datei kann nicht repariert werden.</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>Keine Miniatur gefunden</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>Ein Marker fehlt. Die Miniatur konnte nicht extrahiert werden</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(Miniatur beschädigt)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(Keine Miniatur)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(Ungültige Datei)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1: übersprungen</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1: übersprungen, dieselbe Datei ist schon da</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>%1 von %2 Dateien wurden gespeichert.</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>Mit den Kameradaten (Datum, Ort, Ausrichtung, Farben) gespeichert: %1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>Es fanden sich keine Kameradaten (Datum, Ort, Ausrichtung, Farben), die sich zurückschreiben ließen.</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>Den gespeicherten Fotos fehlen die Kameradaten (Datum, Ort, Ausrichtung, Farben).</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 Um sie damit zu speichern, vorher im Menü „Datei“ die Option „Kameradaten zurückschreiben“ wählen.</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 wurde als %2 gespeichert, denn eines der zu reparierenden Fotos heißt dort so.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>„%1“ kann kein Dateiname sein</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>die Frage dazu wurde ohne Antwort geschlossen</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>die reparierte Datei ist aus dem Arbeitsordner verschwunden</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>eine Datei trägt diesen Namen</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>der Ordner „%1“ lässt sich nicht anlegen: %2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>das Ziel „%1“ ist kein Ordner</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>das Ziel „%1“ liegt im Arbeitsordner des Programms</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>das Speichern wurde vorher abgebrochen</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>Ihr Anteil am Datenträger (Quota) ist aufgebraucht</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>der Datenträger ist schreibgeschützt</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>Sie dürfen dort nicht schreiben</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>der Ordner ist verschwunden</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>eine Datei mit diesem Namen ist schon da</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>die Datei ist größer, als dort geschrieben werden darf</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>der Name ist zu lang</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>der Datenträger ist ausgefallen oder wurde entfernt</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>die reparierte Datei ist leer</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>Nicht alles wurde gespeichert</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>Abschluss des Speicherns</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>Bild(er) erfolgreich gespeichert.</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Hier klicken</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>Was nicht gespeichert wurde</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>Gespeichert in:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>Tiefenrettung für 1 Datei versuchen</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>Tiefenrettung für %n Datei versuchen</numerusform>
            <numerusform>Tiefenrettung für %n Dateien versuchen</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>Durchsucht die Dateien, die nicht oder nur zum Teil herauskamen, gründlicher. Was herauskam, bleibt.</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>Tiefenrettung versuchen</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>Der Arbeitsordner „%1“ kann nicht gesperrt werden.</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>Das Programm läuft bereits, und dies sind zu viele Dateien, um sie auf einmal zu übergeben.</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>Das Programm läuft bereits, ist aber beschäftigt; es hat noch nicht geantwortet.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>Der Arbeitsordner „%1“ wird von einem anderen Programm benutzt.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>Der Arbeitsordner „%1“ wird von %2 benutzt (Prozess %3 auf %4).</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>Das Programm ist beschädigt. Bitte installieren Sie es neu. (%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>Das geschlossene Programm löscht noch seine Arbeitsdateien. Dieses startet danach.</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>Stopp der Reparatur</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Möchten Sie den laufenden Vorgang stoppen?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Der Vorgang kann nicht von hier fortgesetzt werden. Alle Änderungen werden verworfen. </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>UpdateOffer</name>
    <message>
        <source>What&apos;s New</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>Seite besuchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>Einzelheiten zur neuen Version: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>Update: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Großes Update</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Kleines Update</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>der Arbeitsordner „%1“ gehört einem anderen Benutzer</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>andere können in den Arbeitsordner „%1“ schreiben</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>andere haben Zugang zum Arbeitsordner „%1“; seine Zugriffsrechte müssen 0700 sein</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>der Arbeitsordner „%1“ kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>der Arbeitsordner „%1“ ist ein symbolischer Link</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>der Arbeitsordner „%1“ ist kein Ordner</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>der Arbeitsordner „%1“ kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>der Arbeitsordner „%1“ kann nicht benutzt werden: %2</translation>
    </message>
</context>
</TS>
