<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>About Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>Repairs damaged photographs.</translation>
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
        <translation>System version</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Processor</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</translation>
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
        <translation>Advanced Repair

Use this option to repair severely damaged JPEGs. 
Click Next to add a &apos;sample JPEG&apos; of the same 
format, shot using the same device. The sample and 
the damaged JPEGs remain unchanged during 
the repair process.</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>Advanced Repair

Use this option to repair severely damaged HEICs. 
Click Next to add a &apos;sample HEIC </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation> of the same format. The sample and the damaged HEIC remain unchanged during the repair process.</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>&apos;</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Advanced Repair</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Next</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>File Exists</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>File Name:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>Rename to:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Overwrite</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Skip</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>Rename All</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>Overwrite All</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Skip All</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>This action will clear the repair results.
Do you want to go back to the previous screen?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
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
        <translation>The selected destination path is read-only (restricted by the operating system). </translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>Select a different location to proceed.</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Add Files</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>Click to add photos, or drag JPEG files here.</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>Files to repair</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>Repair results</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Select one or more files to open</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  File Name</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Path</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> Size (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Modified Date</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Created Date</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   File Name</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Path</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> Size (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>Modified Date</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>Created Date</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>This file is already in the list.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>&amp;Overview</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>&amp;Mail to support</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>Submit an enquiry</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>Knowledge base</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>Check for &amp;updates...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>&amp;About Kesmira</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Add...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Repair</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>S&amp;top</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>&amp;Save Repaired Files...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Back</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>More Tools</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>Recover Data</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>Monitor Drive</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>Repair Video</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>Recover Photo</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>This tool is not installed.</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>Click on &apos;Save Repaired Files&apos; to save all your repaired photos. Click a file to preview it. </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>Repair process completed.</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Advanced Repair</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Aborted</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>Repairing file </translation>
    </message>
    <message>
        <source>of</source>
        <translation>of</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Repaired</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>Extracted</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Thumbnail</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>Advanced Repair</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>Repairing selected photos</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> File Name</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> Type</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> Resolution</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>Repairing selected photos</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>Repairing file: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Select Folder</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>&amp;Deep salvage</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>Deep salvage: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>Salvaged</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>Results that have not been saved and would be lost: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>Deep salvage</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>Not of a format that can be repaired:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>Folders can&apos;t be dropped, so nothing was added:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>Only JPEG files can be dropped; take Add for:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Reading the picture ...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>What was begun before is still being ended and wiped; the run starts after that.</translation>
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
        <translation>Click on &quot;Add&quot; to add corrupt JPEG files for repair. You can also simply &quot;Drag &amp; Drop&quot; them in the space above.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>Remove Files</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Repair</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Select All</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimise</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Save Repaired Files</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>Show Thumbnail</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>The update can&apos;t be read.</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>The update is empty.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>The update is damaged.</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>The update holds what doesn&apos;t belong there, and was refused.</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>The update can&apos;t be unpacked: it is damaged, or the disk is full.</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>The installed program isn&apos;t where it was.</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>This program is installed where you can&apos;t change it. Its update comes from who installed it.</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>The update doesn&apos;t hold the program.</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>The new version can&apos;t be put in place: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>Put the &amp;camera&apos;s data back</translation>
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
        <translation>Looking for a new version...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>Exit</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Are you sure you want to exit?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
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
        <translation>Repair Complete</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>Repair process completed.

Thumbnails are listed as &apos;filename_[Tx]&apos; if available.
Thumbnails are small-sized images of large JPEGs.</translation>
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
        <translation>The server sends more than an update can hold.</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>The address of the update isn&apos;t a safe one.</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>The server takes too long.</translation>
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
        <translation>Progress</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
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
        <translation>Remove file</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Remove ticked</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>Folder Exists</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>Folder Exists</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>Folder Name: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>Rename to: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Overwrite</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rename</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>the file can&apos;t be read</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>the file is too large</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>it isn&apos;t a HEIC, or holds image tiles alone</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>the file holds image tiles alone, or isn&apos;t a rewritten one</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>the index of the picture&apos;s tiles is broken</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>the picture can&apos;t be decoded</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>the picture has more pixels than can be shown</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>there is no memory for the picture</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>the decoder can&apos;t be started</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>the decoder broke off: the file is damaged, or asks for too much</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>a box that describes the picture is broken</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>no item of the file puts the picture&apos;s tiles together</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>the picture can&apos;t be written in this format</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>the decoder took too long</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>the decoder was stopped</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 file, %1 ticked</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n files, %1 ticked</numerusform>
            <numerusform>%n files, %1 ticked</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>Remove file</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>Takes the chosen file off the list. The file itself stays where it is.</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Remove ticked</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>Takes the ticked files off the list. The files themselves stay where they are.</translation>
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
        <translation>A double-click, Return or F11 shows the result in full.</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>The file that is shown isn&apos;t replaced; choose another name.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>&apos;%1&apos; can&apos;t be written: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Thumbnail</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>The small picture that the camera has put into the file. Compare: it shows the same scene.</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Previous picture</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Next picture</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Smaller</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Larger</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>Full size</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Fit</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Save as</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 of %3)</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Reading the picture ...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>This file can&apos;t be shown: %1.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 pixels</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>The name must end in .jpg or .png.</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>The name must end in .png, .jpg or .heic.</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>Major</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Major Update</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>Minor</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Minor Update</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>No update available.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>Time Elapsed: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> sec </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB of </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB copied) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Transfer Rate: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/sec </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>This program is updated by the system that installed it.</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>Please wait as this process will take several </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>seconds to a few minutes </translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>This isn&apos;t an update of the maker&apos;s, and it was not installed.</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>Add File</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>Add a sample HEIC:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Add a sample JPEG:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>Damaged file: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Advanced Repair</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Add a sample JPEG:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> Apply to all files of the same format.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Repair</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>rebuilt from its segments</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>an image inside the file</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>rebuilt from the first usable segment</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>rebuilt with the header of the sample</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>found through the file&apos;s own index</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>found by searching the file</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>its index was written anew</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>The file can&apos;t be read.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>The file is too large.</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>The file isn&apos;t of a format that can be repaired.</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>The header is lost. A sample from the same camera may help.</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>What could be rebuilt doesn&apos;t open as a picture.</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>The file holds no preview picture.</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>The number of image tiles isn&apos;t one of the known ones.</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>The index is lost. A sample from the same camera may help.</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>The disk is full or can&apos;t be written.</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>Stopped before this file was done.</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>Quantization tables replaced: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>Huffman tables replaced: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>Illegal bytes of the picture data neutralised: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>Bytes stepped over: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>Nothing came out of this file.</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>text transfer undone</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>picture data found</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>frame mended</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>restart interval found</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>Huffman tables taken from known ones</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>Huffman counts mended</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>Huffman symbols found</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>size found</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>quantization tables mended</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>illegal codes mended</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>hit bytes repaired</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>restart intervals put in place</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>shifted parts moved back</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>exact</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>likely</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>a guess</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>The file is too large for deep salvage.</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>Deep salvage found nothing better.</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>Salvaged (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>Salvaged: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>It opens as it is.</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>The file holds no picture data.</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>The sample doesn&apos;t fit this file.</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>Deep salvage may bring back more.</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>The picture is whole.</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>Only part of the picture is there (about %1 %).</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>The picture is doubtful: parts of it may be wrong.</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>Its bytes are of another format than its name says: %1.</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>Show all</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>Hidden ticked files are saved, too.</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 file:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n files:</numerusform>
            <numerusform>%n files:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>%n healthy</numerusform>
            <numerusform>%n healthy</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>%n whole</numerusform>
            <numerusform>%n whole</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>%n in part</numerusform>
            <numerusform>%n in part</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>%n doubtful</numerusform>
            <numerusform>%n doubtful</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>%n not judged</numerusform>
            <numerusform>%n not judged</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>%n not repaired</numerusform>
            <numerusform>%n not repaired</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>Shows these files alone, or all of them again. What is saved stays the same.</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>Next: try another healthy photo from the same camera, of the same size.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>Next: nothing here helps; look for another copy of the file.</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>Next: see that the file is still there and can be read, then repair it again.</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>Next: free some space, then repair it again.</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>Next: go back and repair it again.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>Next: nothing here helps; a program for raw photos may still open the file.</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>Next: give a copy of it the suffix of that format, and repair the copy.</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>A thumbnail: a small picture beside the photo.</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>It doesn&apos;t open as a picture.</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>Nothing needs to be done about it.</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>Next: save it. Nothing more needs to be done.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>Next: look at the picture before you save it.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>Next: look at the picture before you save it; no way is left to find more of it.</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>How much of the picture is there isn&apos;t known.</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Source: %1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>Try another sample</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Try a sample</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>Invalid File</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>An important marker is missing. The file can&apos;t be repaired.</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>No Thumbnail found</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>Marker missing. Failed to extract thumbnail</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(Thumbnail Corrupt)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(Thumbnail Absent)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(Invalid File)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1: skipped</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1: skipped, the same file is there already</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>%1 of %2 files were saved.</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>Saved with the camera&apos;s data (date, place, orientation, colours): %1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>No camera data (date, place, orientation, colours) were found to put back.</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 was saved as %2, for one of the photos to repair has that name there.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>&apos;%1&apos; can&apos;t be a file&apos;s name</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>the question about it was closed without an answer</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>the repaired file is gone from the working folder</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>a file has its name</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>the folder &apos;%1&apos; can&apos;t be made: %2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>the destination &apos;%1&apos; is not a folder</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>the destination &apos;%1&apos; lies inside the program&apos;s working folder</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>the save was called off before it</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>the disk is full</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>your share of the disk (quota) is used up</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>the disk can only be read</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>you have no right to write there</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>the folder is gone</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>a file with this name is there already</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>the file is larger than may be written there</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>the name is too long</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>the disk failed or was removed</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>the repaired file is empty</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>Not everything was saved</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>Saving Complete</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>Image(s) saved successfully.</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Click here</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>What was not saved</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>Saved in:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>Try deep salvage for 1 file</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>Try deep salvage for %n files</numerusform>
            <numerusform>Try deep salvage for %n files</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>Searches the files that are broken or there in part more thoroughly. What came out stays.</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>Try deep salvage</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>The working folder &quot;%1&quot; can&apos;t be locked.</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>The program is running already, and these are too many files to hand over to it at once.</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>The program is running already but is busy; it hasn&apos;t answered yet.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>The working folder &quot;%1&quot; is in use by another program.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>The program is damaged. Please install it again. (%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>The program that was closed is still wiping its working files. This one starts after that.</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>Stop Repair</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Do you want to stop the current process?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>You can&apos;t resume the process from this point. All the changes will be discarded. </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
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
        <translation>What&apos;s New</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>Visit Page</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Download</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>New version details: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>Update: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Major Update</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Minor Update</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>the working folder &apos;%1&apos; belongs to another user</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>the working folder &apos;%1&apos; can be written by others</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>the working folder &apos;%1&apos; can&apos;t be made: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>the working folder &apos;%1&apos; is a symbolic link</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>the working folder &apos;%1&apos; is not a folder</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>the working folder &apos;%1&apos; can&apos;t be opened</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>the working folder &apos;%1&apos; can&apos;t be used: %2</translation>
    </message>
</context>
</TS>
