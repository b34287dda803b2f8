<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>Informazioni su Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>Ripara le foto danneggiate.</translation>
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
        <translation>Sistema</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>Versione del sistema</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Processore</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versione %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Realizzato con Qt %1 (LGPL 3), libheif (LGPL 3) e libarchive (BSD). Le licenze sono allegate alla documentazione del programma.</translation>
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
        <translation>Riparazione avanzata

Usare questa opzione per i JPEG gravemente danneggiati. 
Fare clic su “Avanti” per aggiungere un “JPEG campione” 
dello stesso formato, scattato con lo stesso dispositivo. 
Il campione e i JPEG danneggiati 
restano invariati.</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>Riparazione avanzata

Usare questa opzione per gli HEIC gravemente danneggiati. 
Fare clic su “Avanti” per aggiungere un “HEIC campione </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation> dello stesso formato. Il campione e l’HEIC danneggiato restano invariati durante la riparazione.</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>”</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>Un buon campione si apre in qualsiasi visualizzatore e viene dallo stesso telefono, scattato come la foto danneggiata: con la stessa fotocamera del telefono, le stesse impostazioni e il telefono tenuto allo stesso modo.</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>Un buon campione si apre in qualsiasi visualizzatore e viene dalla stessa fotocamera o dallo stesso telefono, scattato come la foto danneggiata: con le stesse impostazioni e la fotocamera tenuta allo stesso modo.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Riparazione avanzata</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Avanti</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>File esistente</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>Nome file:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>Rinomina in:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sovrascrivi</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Salta</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>Rinomina tutti</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>Sovrascrivi tutti</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Salta tutti</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>Ritorno</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>I risultati della riparazione verranno eliminati.
Tornare alla schermata precedente?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>BrowseRepair</name>
    <message>
        <source>Selected destination path is read-only (restricted by the operating system</source>
        <translation>La cartella di destinazione scelta è di sola lettura (limitata dal sistema operativo). </translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>Scegliere un’altra posizione per continuare.</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Aggiungi file</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>Fare clic per aggiungere foto o trascinare qui i file JPEG.</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>File da riparare</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>Risultati della riparazione</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Scelta dei file da aprire</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  Nome file</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Percorso</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> Dim. (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Ultima modifica</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Creazione</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   Nome file</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Percorso</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> Dim. (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>Ultima modifica</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>Creazione</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>Il file è già nell’elenco.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Lingua</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>&amp;Guida</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>&amp;Panoramica</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistenza</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>&amp;E-mail all’assistenza</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>Invia una richiesta</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>Knowledge base</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>&amp;Cerca aggiornamenti...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>&amp;Informazioni su Kesmira</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Aggiungi...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Ripara</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>In&amp;terrompi</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>&amp;Salva foto riparate...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Indietro</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Esci</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Guida</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>Altri strumenti</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>Recupera dati</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>Controlla unità</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>Ripara video</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>Recupera foto</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>Questo strumento non è installato.</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>Fare clic su “Salva foto riparate” per salvare tutte le foto riparate. Fare clic su un file per vederne l’anteprima. </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>Riparazione completata.</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Riparazione avanzata</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Interrotto</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>Riparazione del file </translation>
    </message>
    <message>
        <source>of</source>
        <translation>di</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Riparato</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>Estratto</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatura</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>Riparazione avanzata</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>Riparazione delle foto selezionate</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>L’operazione può richiedere tempo, secondo il numero e le dimensioni delle foto. Attendere il completamento.</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nome file</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> Tipo</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> Risoluzione</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>Riparazione delle foto selezionate</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>Riparazione del file: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Scelta della cartella</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Immagini</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>Esamina più a fondo le foto JPEG danneggiate. Alcune parti di un’immagine restaurata possono essere supposte.</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>Restauro appro&amp;fondito</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>Restauro approfondito: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>Restaurato</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Dettagli</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>Risultati non salvati che andrebbero perduti: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>Restauro approfondito</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>Formato non riparabile:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>Le cartelle non si possono trascinare, quindi non è stato aggiunto nulla:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>Si possono trascinare solo file JPEG; usare “Aggiungi” per:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Lettura dell’immagine...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>Quanto iniziato prima si sta ancora concludendo e cancellando; poi parte la riparazione.</translation>
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
        <translation>Fare clic su “Aggiungi” per aggiungere JPEG danneggiati. È anche possibile trascinarli nello spazio qui sopra.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Aggiungi</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>Togli dall’elenco</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Ripara</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Guida</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Salva foto riparate</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>Mostra miniature</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>Impossibile leggere l’aggiornamento.</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>L’aggiornamento è vuoto.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>L’aggiornamento è danneggiato.</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>L’aggiornamento contiene elementi estranei ed è stato rifiutato.</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>Impossibile estrarre l’aggiornamento: è danneggiato o il disco è pieno.</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>Il programma installato non è più al suo posto.</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>Il programma è installato dove non è possibile modificarlo. L’aggiornamento spetta a chi lo ha installato.</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>L’aggiornamento non contiene il programma.</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>Impossibile installare la nuova versione: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>Al salvataggio, data, luogo, orientamento e profilo colore delle foto vengono ripresi dai file danneggiati, dove sono integri.</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>Rimetti i &amp;dati della fotocamera</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>Ricerca di una nuova versione...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>Uscita</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Uscire dal programma?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>CompletionMsgObj</name>
    <message>
        <source>Repair Complete</source>
        <translation>Fine della riparazione</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>Riparazione completata.

Le miniature, se presenti, sono elencate come “nomefile_[Tx]”.
Sono piccole immagini di JPEG grandi.</translation>
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
        <translation>Il server invia più dati di quanti un aggiornamento possa contenerne.</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>L’indirizzo dell’aggiornamento non è sicuro.</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>Il server impiega troppo tempo.</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
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
        <translation>Togli il file</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Togli i selezionati</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>Cartella esistente</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>Cartella esistente</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>Nome cartella: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>Rinomina in: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sovrascrivi</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>impossibile leggere il file</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>il file è troppo grande</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>non è un HEIC o contiene solo riquadri</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>il file contiene solo riquadri o non è stato riscritto</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>l’indice dei riquadri è danneggiato</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>impossibile decodificare l’immagine</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>l’immagine ha troppi pixel per essere mostrata</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>memoria insufficiente per l’immagine</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>impossibile avviare il decodificatore</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>il decodificatore si è interrotto: il file è danneggiato o richiede troppo</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>un box che descrive l’immagine è danneggiato</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>nessun elemento del file unisce i riquadri dell’immagine</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>impossibile scrivere l’immagine in questo formato</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>la decodifica ha richiesto troppo tempo</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>la decodifica è stata interrotta</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 file, %1 selezionato</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n file, %1 selezionati</numerusform>
            <numerusform>%n file, %1 selezionati</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>Togli il file</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>Toglie il file scelto dall’elenco. Il file stesso resta dov’è.</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Togli i selezionati</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>Toglie i file selezionati dall’elenco. I file stessi restano dove sono.</translation>
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
        <translation>No</translation>
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
        <translation>Doppio clic, Invio o F11 mostra il risultato per intero.</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>Il file mostrato non viene sostituito. Scegliere un altro nome.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>Impossibile scrivere “%1”: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatura</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>La piccola immagine che la fotocamera ha messo nel file. Per confronto: mostra la stessa scena.</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Immagine precedente</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Immagine successiva</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Riduci</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Ingrandisci</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>Dimensioni reali</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Adatta</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Salva con nome</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 di %3)</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Lettura dell’immagine...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>Impossibile mostrare il file: %1.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 pixel</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>JPEG così com’è (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC apribile da altri programmi (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>Il nome deve terminare in .jpg o .png.</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>Il nome deve terminare con .png, .jpg o .heic.</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>Questa immagine non c’è più. Tornando indietro o ricominciando si eliminano i risultati non salvati.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>Principale</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Aggiornamento principale</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>Secondario</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Aggiornamento secondario</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Nessun aggiornamento disponibile.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>Tempo trascorso: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB di </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB copiati) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Velocità di trasferimento: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/s </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>Questo programma viene aggiornato dal sistema che lo ha installato.</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>Attendere: l’operazione richiede da alcuni </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>secondi a pochi minuti. </translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>Questo aggiornamento non proviene dal produttore e non è stato installato.</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>Scelta del campione</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>Aggiungere un HEIC campione:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Aggiungere un JPEG campione:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Immagini</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>File danneggiato: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Riparazione avanzata</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Aggiungere un JPEG campione:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> Applica a tutti i file dello stesso formato.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Ripara</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>ricostruito dai suoi segmenti</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>un’immagine nel file</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>ricostruito dal primo segmento utilizzabile</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>ricostruito con l’intestazione del campione</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>trovato tramite l’indice del file</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>trovato esaminando il file</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>il suo indice è stato riscritto</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>Impossibile leggere il file.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Il file è vuoto.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Il file è troppo grande.</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>Questo formato di file non può essere riparato.</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>L’intestazione è perduta. Un campione della stessa fotocamera può aiutare.</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>Ciò che è stato ricostruito non si apre come immagine.</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>Il file non contiene un’immagine di anteprima.</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>Il numero di riquadri dell’immagine non è tra quelli noti.</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>L’indice è perduto. Un campione della stessa fotocamera può aiutare.</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>Il disco è pieno o non è scrivibile.</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>Interrotto prima di finire questo file.</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>Tabelle di quantizzazione sostituite: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>Tabelle di Huffman sostituite: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>Byte non validi dei dati immagine neutralizzati: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>Byte saltati: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>Da questo file non è stato ricavato nulla.</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>effetti di un trasferimento in modalità testo corretti</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>dati dell’immagine trovati</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>intestazione dell’immagine corretta</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>intervallo di riavvio trovato</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>tabelle di Huffman sostituite con tabelle note</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>conteggi di Huffman corretti</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>simboli di Huffman trovati</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>dimensioni trovate</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>tabelle di quantizzazione corrette</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>codici non validi corretti</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>byte danneggiati riparati</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>intervalli di riavvio rimessi a posto</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>parti spostate rimesse a posto</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>esatto</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>probabile</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>supposto</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>Il file è troppo grande per il restauro approfondito.</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>Il restauro approfondito non ha trovato nulla di meglio.</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>Restaurato (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>Restaurato: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>Il file si apre così com’è.</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>Il file non contiene dati di immagine.</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>Il campione non è adatto a questo file.</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>Ci sono soltanto i riquadri dell’immagine, che nulla apre. Un campione della stessa fotocamera può aiutare.</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>Il restauro approfondito può riportarne di più.</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>L’immagine è intera.</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>C’è soltanto una parte dell’immagine (circa %1 %).</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>L’immagine è dubbia: alcune parti possono essere sbagliate.</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>I suoi byte sono di un formato diverso da quello del nome: %1.</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>Mostra tutti</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>Anche i file selezionati nascosti vengono salvati.</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 file:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n file:</numerusform>
            <numerusform>%n file:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>%n sano</numerusform>
            <numerusform>%n sani</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>%n intero</numerusform>
            <numerusform>%n interi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>%n parziale</numerusform>
            <numerusform>%n parziali</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>%n dubbio</numerusform>
            <numerusform>%n dubbi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>%n non valutato</numerusform>
            <numerusform>%n non valutati</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>%n non riparato</numerusform>
            <numerusform>%n non riparati</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>Mostra solo questi file, o di nuovo tutti. Ciò che viene salvato non cambia.</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>Poi: premere “%1” nella sua riga e dare una foto integra della stessa fotocamera.</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>Poi: provare con un’altra foto integra della stessa fotocamera, delle stesse dimensioni.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>Poi: qui nulla può aiutare; cercare un’altra copia del file.</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>Poi: controllare che il file ci sia ancora e sia leggibile, poi ripararlo di nuovo.</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>Poi: liberare spazio, poi ripararlo di nuovo.</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>Poi: tornare indietro e ripararlo di nuovo.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>Poi: qui nulla può aiutare; un programma per foto raw potrebbe ancora aprire il file.</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>Poi: dare a una copia l’estensione di quel formato e riparare la copia.</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>Una miniatura: una piccola immagine accanto alla foto.</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>L’anteprima della fotocamera; i dati raw accanto non vengono riparati.</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>Non si apre come immagine.</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>Non c’è nulla da fare.</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>Poi: salvarla. Non c’è altro da fare.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>Poi: guardare l’immagine prima di salvarla.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>Poi: guardare l’immagine prima di salvarla; non resta modo di ritrovarne altro.</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>Non si sa quanta parte dell’immagine ci sia.</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Origine: %1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>Poi: premere “%1” e dare una foto integra della stessa fotocamera.</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>L’immagine stessa non è stata ottenuta, ma solo altre più piccole contenute nel file.</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>Prova un altro campione</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Prova un campione</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>File non valido</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>Manca un marcatore importante. Il file non può essere riparato.</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>Nessuna miniatura trovata</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>Manca un marcatore. Impossibile estrarre la miniatura</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(Miniatura danneggiata)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(Miniatura assente)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(File non valido)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1: saltato</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1: saltato, lo stesso file c’è già</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>Salvati %1 file su %2.</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>Salvati con i dati della fotocamera (data, luogo, orientamento, colori): %1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>Non sono stati trovati dati della fotocamera (data, luogo, orientamento, colori) da rimettere.</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>Alle foto salvate mancano i dati della fotocamera (data, luogo, orientamento, colori).</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 Per salvarle con questi, scegliere prima “Rimetti i dati della fotocamera” nel menu File.</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 è stato salvato come %2, perché una delle foto da riparare ha lì quel nome.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>“%1” non può essere il nome di un file</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>la domanda relativa è stata chiusa senza risposta</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>il file riparato non è più nella cartella di lavoro</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>un file ha questo nome</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>impossibile creare la cartella “%1”: %2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>la destinazione “%1” non è una cartella</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>la destinazione “%1” è nella cartella di lavoro del programma</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>il salvataggio è stato annullato prima</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>il disco è pieno</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>lo spazio assegnato (quota) è esaurito</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>il disco è di sola lettura</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>non si ha il permesso di scrivere lì</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>la cartella non c’è più</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>c’è già un file con questo nome</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>il file è più grande di quanto si possa scrivere lì</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>il nome è troppo lungo</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>il disco è guasto o è stato rimosso</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>il file riparato è vuoto</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>Non è stato salvato tutto</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>Fine del salvataggio</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>Immagini salvate.</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Fare clic qui</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>Che cosa non è stato salvato</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>Salvato in:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>Prova il restauro approfondito per 1 file</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>Prova il restauro approfondito per %n file</numerusform>
            <numerusform>Prova il restauro approfondito per %n file</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>Esamina più a fondo i file non riparati o riparati in parte. Ciò che è stato ottenuto resta.</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>Prova il restauro approfondito</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>Impossibile bloccare la cartella di lavoro “%1”.</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>Il programma è già in esecuzione e i file sono troppi per essergli passati in una volta.</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>Il programma è già in esecuzione ma è occupato; non ha ancora risposto.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>La cartella di lavoro “%1” è usata da un altro programma.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>La cartella di lavoro “%1” è usata da %2 (processo %3 su %4).</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>Il programma è danneggiato. Installarlo di nuovo. (%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>Il programma chiuso sta ancora cancellando i suoi file di lavoro. Questo si avvia subito dopo.</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>Interruzione della riparazione</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Interrompere l’operazione in corso?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Non sarà possibile riprendere da questo punto. Tutte le modifiche andranno perse. </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>UpdateOffer</name>
    <message>
        <source>What&apos;s New</source>
        <translation>Novità</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>Visita la pagina</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Scarica</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>Dettagli della nuova versione: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>Aggiornamento: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Aggiornamento principale</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Aggiornamento secondario</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>la cartella di lavoro “%1” appartiene a un altro utente</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>altri possono scrivere nella cartella di lavoro “%1”</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>altri possono accedere alla cartella di lavoro “%1”; i suoi permessi devono essere 0700</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>impossibile creare la cartella di lavoro “%1”: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>la cartella di lavoro “%1” è un collegamento simbolico</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>la cartella di lavoro “%1” non è una cartella</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>impossibile aprire la cartella di lavoro “%1”</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>impossibile usare la cartella di lavoro “%1”: %2</translation>
    </message>
</context>
</TS>
