<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>À propos de Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>Répare les photos endommagées.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Ordinateur</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>Version du système</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Processeur</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Créé avec Qt %1 (LGPL 3), libheif (LGPL 3) et libarchive (BSD). Les licences accompagnent la documentation du programme.</translation>
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
        <translation>Réparation avancée

Cette option répare les JPEG gravement endommagés. 
Cliquez sur «&#xa0;Suivant&#xa0;» pour ajouter un «&#xa0;JPEG exemple&#xa0;» 
du même format, pris avec le même appareil. 
L’exemple et les JPEG endommagés 
restent inchangés.</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>Réparation avancée

Cette option répare les HEIC gravement endommagés. 
Cliquez sur «&#xa0;Suivant&#xa0;» pour ajouter un «&#xa0;HEIC exemple </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation> du même format. L’exemple et le HEIC endommagé restent inchangés pendant la réparation.</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>&#xa0;»</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>Un bon exemple s’ouvre dans toute visionneuse et vient du même téléphone, pris comme la photo endommagée&#xa0;: avec le même objectif, les mêmes réglages et le téléphone tenu de la même façon.</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>Un bon exemple s’ouvre dans toute visionneuse et vient du même appareil ou téléphone, pris comme la photo endommagée&#xa0;: avec les mêmes réglages et l’appareil tenu de la même façon.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Réparation avancée</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>Fichier existant</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>Nom du fichier&#xa0;:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>Renommer en&#xa0;:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Ignorer</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>Tout renommer</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>Tout remplacer</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Tout ignorer</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Les résultats de la réparation seront effacés.
Voulez-vous revenir à l’écran précédent&#xa0;?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>BrowseRepair</name>
    <message>
        <source>Selected destination path is read-only (restricted by the operating system</source>
        <translation>Le dossier de destination choisi est en lecture seule (restreint par le système d’exploitation). </translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>Choisissez un autre emplacement pour continuer.</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Ajouter des fichiers</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>Cliquez pour ajouter des photos ou faites glisser des fichiers JPEG ici.</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>Fichiers à réparer</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>Résultats de la réparation</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Choix des fichiers à ouvrir</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  Nom</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Chemin</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> Taille (Ko)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Modifié le</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Créé le</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   Nom</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Chemin</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> Taille (Ko)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>Modifié le</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>Créé le</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>Ce fichier figure déjà dans la liste.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>&amp;Vue d’ensemble</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistance</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>&amp;Écrire à l’assistance</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>Envoyer une demande</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>Base de connaissances</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>Rechercher les &amp;mises à jour...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>À &amp;propos de Kesmira</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Ajouter...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Réparer</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>Arrê&amp;ter</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>Enregi&amp;strer les photos réparées...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Retour</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>Autres outils</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>Récupérer des données</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>Surveiller un disque</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>Réparer une vidéo</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>Récupérer des photos</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>Cet outil n’est pas installé.</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>Cliquez sur «&#xa0;Enregistrer les photos&#xa0;» pour enregistrer toutes vos photos réparées. Cliquez sur un fichier pour en voir l’aperçu. </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>La réparation est terminée.</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Réparation avancée</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Interrompu</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>Réparation du fichier </translation>
    </message>
    <message>
        <source>of</source>
        <translation>sur</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Réparé</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>Extrait</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniature</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>Réparation avancée</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>Réparation des photos sélectionnées</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>Cela peut prendre un moment selon le nombre de photos et leur taille. Veuillez patienter jusqu’à la fin de l’opération.</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nom</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> Type</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> Résolution</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>Réparation des photos sélectionnées</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>Réparation du fichier&#xa0;: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Choix du dossier</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>Examine plus à fond les photos JPEG endommagées. Certaines parties d’une image issue du sauvetage peuvent être devinées.</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>Sau&amp;vetage approfondi</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>Sauvetage approfondi&#xa0;: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>Sauvetage</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>Résultats non enregistrés qui seraient perdus&#xa0;: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>Sauvetage approfondi</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>D’un format qui ne peut pas être réparé&#xa0;:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>Les dossiers ne peuvent pas être déposés, rien n’a donc été ajouté&#xa0;:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>Seuls les fichiers JPEG peuvent être déposés&#xa0;; utilisez «&#xa0;Ajouter&#xa0;» pour&#xa0;:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Lecture de l’image...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>Ce qui avait été commencé est encore en cours d’arrêt et d’effacement&#xa0;; la réparation démarre ensuite.</translation>
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
        <translation>Cliquez sur «&#xa0;Ajouter&#xa0;» pour ajouter des JPEG endommagés. Vous pouvez aussi les faire glisser dans l’espace ci-dessus.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>Retirer de la liste</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Réparer</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Enregistrer les photos</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>Afficher les miniatures</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>La mise à jour est illisible.</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>La mise à jour est vide.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>La mise à jour est endommagée.</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>La mise à jour contient des éléments étrangers et a été refusée.</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>La mise à jour ne peut pas être décompressée&#xa0;: elle est endommagée ou le disque est plein.</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>Le programme installé n’est plus à sa place.</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>Le programme est installé là où vous ne pouvez pas le modifier. La mise à jour revient à la personne qui l’a installé.</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>La mise à jour ne contient pas le programme.</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>La nouvelle version ne peut pas être mise en place&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>À l’enregistrement, la date, le lieu, l’orientation et le profil de couleurs des photos sont repris des fichiers endommagés, là où ils sont intacts.</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>Remettre les &amp;données de l’appareil</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>Recherche d’une nouvelle version...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>Fermeture</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Voulez-vous vraiment quitter&#xa0;?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>CompletionMsgObj</name>
    <message>
        <source>Repair Complete</source>
        <translation>Fin de la réparation</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>La réparation est terminée.

Les miniatures éventuelles figurent sous «&#xa0;nomdefichier_[Tx]&#xa0;».
Ce sont de petites images des grands JPEG.</translation>
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
        <translation>Le serveur envoie plus que ce qu’une mise à jour peut contenir.</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>L’adresse de la mise à jour n’est pas sûre.</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>Le serveur met trop de temps.</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Retirer le fichier</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Retirer les cochés</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>Dossier existant</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>Dossier existant</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>Nom du dossier&#xa0;: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>Renommer en&#xa0;: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>le fichier est illisible</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>le fichier est trop volumineux</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>ce n’est pas un HEIC, ou il ne contient que des tuiles</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>le fichier ne contient que des tuiles ou n’a pas été réécrit</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>l’index des tuiles est endommagé</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>l’image ne peut pas être décodée</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>l’image a trop de pixels pour être affichée</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>la mémoire ne suffit pas pour l’image</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>le décodeur ne peut pas être démarré</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>le décodeur s’est interrompu&#xa0;: le fichier est endommagé ou demande trop de ressources</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>une boîte qui décrit l’image est endommagée</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>aucun élément du fichier n’assemble les tuiles de l’image</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>l’image ne peut pas être écrite dans ce format</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>le décodage a pris trop de temps</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>le décodage a été interrompu</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 fichier,&#xa0;%1 coché</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n fichier,&#xa0;%1 cochés</numerusform>
            <numerusform>%n fichiers,&#xa0;%1 cochés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>Retirer le fichier</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>Retire le fichier choisi de la liste. Le fichier lui-même reste où il est.</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Retirer les cochés</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>Retire les fichiers cochés de la liste. Les fichiers eux-mêmes restent où ils sont.</translation>
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
        <translation>Non</translation>
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
        <translation>Un double-clic, Entrée ou F11 montre le résultat en entier.</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>Le fichier affiché ne sera pas remplacé. Choisissez un autre nom.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>Impossible d’écrire «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniature</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>La petite image que l’appareil a placée dans le fichier. Comparez&#xa0;: elle montre la même scène.</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Image précédente</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Image suivante</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>Taille réelle</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajuster</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 sur %3)</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Lecture de l’image...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>Impossible d’afficher ce fichier&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 pixels</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>JPEG tel quel (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC lisible par d’autres programmes (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>Le nom doit se terminer par .jpg ou .png.</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>Le nom doit se terminer par .png, .jpg ou .heic.</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>Cette image n’est plus là. Revenir en arrière et recommencer suppriment les résultats non enregistrés.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>Majeure</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Mise à jour majeure</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>Mineure</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Mise à jour mineure</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Aucune mise à jour disponible.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>Temps écoulé&#xa0;: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> Mo sur </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> Mo copiés) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Débit&#xa0;: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> Ko/s </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>Ce programme est mis à jour par le système qui l’a installé.</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>Veuillez patienter&#xa0;: l’opération prendra de </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>quelques secondes à quelques minutes. </translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>Cette mise à jour ne vient pas de l’éditeur&#xa0;; elle n’a pas été installée.</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>Choix de l’exemple</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>Ajouter un HEIC exemple&#xa0;:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Ajouter un JPEG exemple&#xa0;:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>Fichier endommagé&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Réparation avancée</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Ajouter un JPEG exemple&#xa0;:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Parcourir</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> Appliquer à tous les fichiers du même format.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Réparer</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>reconstruit à partir de ses segments</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>une image dans le fichier</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>reconstruit à partir du premier segment utilisable</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>reconstruit avec l’en-tête de l’exemple</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>trouvé grâce à l’index du fichier</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>trouvé en parcourant le fichier</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>son index a été réécrit</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>Le fichier est illisible.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop volumineux.</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>Ce format de fichier ne peut pas être réparé.</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>L’en-tête est perdu. Un exemple du même appareil peut aider.</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>Ce qui a pu être reconstruit ne s’ouvre pas comme une image.</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>Le fichier ne contient aucune image d’aperçu.</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>Le nombre de tuiles de l’image n’est pas connu.</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>L’index est perdu. Un exemple du même appareil peut aider.</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>Le disque est plein ou protégé en écriture.</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>Arrêté avant la fin de ce fichier.</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>Tables de quantification remplacées&#xa0;: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>Tables de Huffman remplacées&#xa0;: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>Octets interdits des données d’image neutralisés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>Octets ignorés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>Rien n’a pu être tiré de ce fichier.</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>effets d’un transfert en mode texte annulés</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>données d’image trouvées</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>en-tête de l’image corrigé</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>intervalle de redémarrage trouvé</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>tables de Huffman remplacées par des tables connues</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>nombres de codes de Huffman corrigés</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>symboles de Huffman retrouvés</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>taille retrouvée</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>tables de quantification corrigées</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>codes interdits corrigés</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>octets endommagés réparés</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>intervalles de redémarrage remis en place</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>parties décalées remises en place</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>exact</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>probable</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>supposé</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>Le fichier est trop volumineux pour le sauvetage approfondi.</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>Le sauvetage approfondi n’a rien trouvé de mieux.</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>Sauvetage (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>Sauvetage&#xa0;: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>Le fichier s’ouvre tel quel.</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>Le fichier ne contient aucune donnée d’image.</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>L’exemple ne convient pas à ce fichier.</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>Seules les tuiles de l’image sont là, et rien ne les ouvre. Un exemple du même appareil peut aider.</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>Le sauvetage approfondi peut en retrouver davantage.</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>L’image est entière.</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>Seule une partie de l’image est là (environ %1&#xa0;%).</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>L’image est douteuse&#xa0;: certaines parties peuvent être fausses.</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>Ses octets sont d’un autre format que celui de son nom&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>Tout afficher</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>Les fichiers cochés masqués sont enregistrés aussi.</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 fichier&#xa0;:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n fichier&#xa0;:</numerusform>
            <numerusform>%n fichiers&#xa0;:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>%n sain</numerusform>
            <numerusform>%n sains</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>%n entier</numerusform>
            <numerusform>%n entiers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>%n partiel</numerusform>
            <numerusform>%n partiels</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>%n douteux</numerusform>
            <numerusform>%n douteux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>%n non évalué</numerusform>
            <numerusform>%n non évalués</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>%n non réparé</numerusform>
            <numerusform>%n non réparés</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>Affiche ces fichiers seuls, ou de nouveau tous. L’enregistrement n’en est pas changé.</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>Ensuite&#xa0;: appuyez sur «&#xa0;%1&#xa0;» dans sa ligne et donnez une photo intacte du même appareil.</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>Ensuite&#xa0;: essayez une autre photo intacte du même appareil, de la même taille.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>Ensuite&#xa0;: rien ici ne peut aider&#xa0;; cherchez une autre copie du fichier.</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>Ensuite&#xa0;: vérifiez que le fichier est toujours là et lisible, puis réparez-le de nouveau.</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>Ensuite&#xa0;: libérez de l’espace, puis réparez-le de nouveau.</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>Ensuite&#xa0;: revenez en arrière et réparez-le de nouveau.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>Ensuite&#xa0;: rien ici ne peut aider&#xa0;; un logiciel pour photos brutes ouvrira peut-être le fichier.</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>Ensuite&#xa0;: donnez à une copie l’extension de ce format, puis réparez la copie.</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>Une miniature&#xa0;: une petite image à côté de la photo.</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>L’aperçu de l’appareil lui-même&#xa0;; les données brutes à côté ne sont pas réparées.</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>Il ne s’ouvre pas en tant qu’image.</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>Il n’y a rien à faire.</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>Ensuite&#xa0;: enregistrez-la. Il n’y a rien d’autre à faire.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>Ensuite&#xa0;: regardez l’image avant de l’enregistrer.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>Ensuite&#xa0;: regardez l’image avant de l’enregistrer&#xa0;; il ne reste aucun moyen d’en retrouver davantage.</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>On ne sait pas quelle part de l’image est là.</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Source&#xa0;:&#xa0;%1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>Ensuite&#xa0;: appuyez sur «&#xa0;%1&#xa0;» et donnez une photo intacte du même appareil.</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>L’image elle-même n’a pas pu être obtenue&#xa0;; seules de plus petites, contenues dans le fichier, l’ont été.</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>Essayer un autre exemple</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Essayer un exemple</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>Fichier non valide</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>Un marqueur essentiel manque. Le fichier ne peut pas être réparé.</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>Aucune miniature trouvée</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>Un marqueur manque. Impossible d’extraire la miniature</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(Miniature endommagée)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(Miniature absente)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(Fichier non valide)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1&#xa0;: ignoré</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1&#xa0;: ignoré, le même fichier y est déjà</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>%1 fichiers sur&#xa0;%2 ont été enregistrés.</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>Enregistrés avec les données de l’appareil (date, lieu, orientation, couleurs)&#xa0;:&#xa0;%1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>Aucune donnée de l’appareil (date, lieu, orientation, couleurs) à remettre n’a été trouvée.</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>Les photos enregistrées n’ont pas les données de l’appareil (date, lieu, orientation, couleurs).</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 Pour les enregistrer avec celles-ci, choisissez d’abord «&#xa0;Remettre les données de l’appareil&#xa0;» dans le menu Fichier.</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 a été enregistré sous&#xa0;%2, car l’une des photos à réparer y porte ce nom.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être un nom de fichier</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>la question à son sujet a été fermée sans réponse</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>le fichier réparé a disparu du dossier de travail</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>un fichier porte ce nom</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>le dossier «&#xa0;%1&#xa0;» ne peut pas être créé&#xa0;:&#xa0;%2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>la destination «&#xa0;%1&#xa0;» n’est pas un dossier</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>la destination «&#xa0;%1&#xa0;» se trouve dans le dossier de travail du programme</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>l’enregistrement a été annulé avant lui</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>le disque est plein</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>votre part du disque (quota) est épuisée</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>le disque est en lecture seule</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>vous n’avez pas le droit d’écrire à cet endroit</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>le dossier a disparu</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>un fichier de ce nom s’y trouve déjà</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>le fichier est plus grand que ce qui peut y être écrit</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>le nom est trop long</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>le disque est en panne ou a été retiré</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>le fichier réparé est vide</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>Tout n’a pas été enregistré</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>Fin de l’enregistrement</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>Image(s) enregistrée(s).</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Cliquez ici</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>Ce qui n’a pas été enregistré</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>Enregistré dans&#xa0;:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>Essayer le sauvetage approfondi pour 1 fichier</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>Essayer le sauvetage approfondi pour&#xa0;%n fichier</numerusform>
            <numerusform>Essayer le sauvetage approfondi pour&#xa0;%n fichiers</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>Examine plus à fond les fichiers non réparés ou réparés en partie. Ce qui a été obtenu reste.</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>Essayer le sauvetage approfondi</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>Le dossier de travail «&#xa0;%1&#xa0;» ne peut pas être verrouillé.</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>Le programme est déjà ouvert et il y a trop de fichiers à lui transmettre en une fois.</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>Le programme est déjà ouvert mais occupé&#xa0;; il n’a pas encore répondu.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>Le dossier de travail «&#xa0;%1&#xa0;» est utilisé par un autre programme.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>Le dossier de travail «&#xa0;%1&#xa0;» est utilisé par %2 (processus %3 sur %4).</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>Le programme est endommagé. Veuillez le réinstaller. (%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>Le programme fermé efface encore ses fichiers de travail. Celui-ci démarre ensuite.</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>Arrêt de la réparation</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Voulez-vous arrêter l’opération en cours&#xa0;?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>L’opération ne pourra pas être reprise ici. Toutes les modifications seront perdues. </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>UpdateOffer</name>
    <message>
        <source>What&apos;s New</source>
        <translation>Nouveautés</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>Voir la page</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>Détails de la nouvelle version&#xa0;: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>Mise à jour&#xa0;: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Mise à jour majeure</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Mise à jour mineure</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» appartient à un autre utilisateur</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>d’autres peuvent écrire dans le dossier de travail «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>d’autres ont accès au dossier de travail «&#xa0;%1&#xa0;»&#xa0;; ses droits doivent être 0700</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» ne peut pas être créé&#xa0;: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» est un lien symbolique</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» n’est pas un dossier</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>le dossier de travail «&#xa0;%1&#xa0;» ne peut pas être utilisé&#xa0;: %2</translation>
    </message>
</context>
</TS>
