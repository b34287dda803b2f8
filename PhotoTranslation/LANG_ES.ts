<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>Acerca de Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>Repara fotos dañadas.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Equipo</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>Versión del sistema</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Procesador</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Creado con Qt %1 (LGPL 3), libheif (LGPL 3) y libarchive (BSD). Las licencias acompañan a la documentación del programa.</translation>
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
        <translation>Reparación avanzada

Use esta opción para reparar JPEG muy dañados. 
Haga clic en «Siguiente» para añadir un «JPEG de muestra» 
del mismo formato, tomado con el mismo dispositivo. 
La muestra y los JPEG dañados 
no se modifican.</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>Reparación avanzada

Use esta opción para reparar HEIC muy dañados. 
Haga clic en «Siguiente» para añadir un «HEIC de muestra </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation> del mismo formato. La muestra y el HEIC dañado no se modifican durante la reparación.</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>»</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>Una buena muestra se abre en cualquier visor y procede del mismo teléfono, tomada como la foto dañada: con la misma cámara del teléfono, los mismos ajustes y el teléfono sujeto de la misma manera.</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>Una buena muestra se abre en cualquier visor y procede de la misma cámara o del mismo teléfono, tomada como la foto dañada: con los mismos ajustes y la cámara sujeta de la misma manera.</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Reparación avanzada</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>Archivo existente</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>Nombre de archivo:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>Cambiar nombre a:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Omitir</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>Renombrar todo</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>Sobrescribir todo</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Omitir todo</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>Regreso</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Se borrarán los resultados de la reparación.
¿Desea volver a la pantalla anterior?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
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
        <translation>La carpeta de destino elegida es de solo lectura (restringida por el sistema operativo). </translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>Elija otra ubicación para continuar.</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Añadir archivos</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>Haga clic para añadir fotos o arrastre archivos JPEG hasta aquí.</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>Archivos por reparar</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>Resultados de la reparación</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Selección de los archivos</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  Nombre</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Ruta</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> Tamaño (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Modificado</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Creado</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   Nombre</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Ruta</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> Tamaño (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>Modificado</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>Creado</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>El archivo ya está en la lista.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Idioma</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>&amp;Vista general</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Soporte</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>&amp;Correo al soporte</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>Enviar una consulta</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>Base de conocimientos</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>&amp;Buscar actualizaciones...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>Ace&amp;rca de Kesmira</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Añadir...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Reparar</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>De&amp;tener</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>&amp;Guardar fotos reparadas...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Atrás</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>Más herramientas</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>Recuperar datos</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>Supervisar unidad</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>Reparar vídeo</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>Recuperar fotos</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>Esta herramienta no está instalada.</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>Haga clic en «Guardar fotos reparadas» para guardar todas las fotos reparadas. Haga clic en un archivo para ver su vista previa. </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>Reparación terminada.</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Reparación avanzada</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Detenido</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>Reparando el archivo </translation>
    </message>
    <message>
        <source>of</source>
        <translation>de</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Reparado</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>Extraído</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatura</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>Reparación avanzada</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>Reparando las fotos seleccionadas</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>Puede tardar un poco, según el número de fotos y su tamaño. Espere a que termine el proceso.</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nombre</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> Tipo</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> Resolución</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>Reparando las fotos seleccionadas</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>Reparando el archivo: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Selección de la carpeta</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>Examina más a fondo las fotos JPEG dañadas. Algunas partes de una imagen rescatada pueden ser una conjetura.</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>Rescate &amp;profundo</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>Rescate profundo: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>Rescatado</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Detalles</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>Resultados sin guardar que se perderían: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>Rescate profundo</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>De un formato que no se puede reparar:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>No se pueden soltar carpetas, así que no se añadió nada:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>Solo se pueden soltar archivos JPEG; use «Añadir» para:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Leyendo la imagen...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>Lo iniciado antes todavía se está terminando y borrando; después empieza la reparación.</translation>
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
        <translation>Haga clic en «Añadir» para añadir JPEG dañados. También puede arrastrarlos al espacio de arriba.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>Quitar de la lista</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Guardar fotos reparadas</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>Mostrar miniaturas</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>No se puede leer la actualización.</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>La actualización está vacía.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>La actualización está dañada.</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>La actualización contiene elementos ajenos y se ha rechazado.</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>No se puede descomprimir la actualización: está dañada o el disco está lleno.</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>El programa instalado ya no está en su sitio.</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>El programa está instalado donde no puede modificarlo. La actualización corresponde a quien lo instaló.</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>La actualización no contiene el programa.</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>No se puede instalar la nueva versión: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>Al guardar, la fecha, el lugar, la orientación y el perfil de color de las fotos se toman de los archivos dañados, donde estén intactos.</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>Devolver los &amp;datos de la cámara</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Actualización</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>Buscando una nueva versión...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>¿Seguro que desea salir?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
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
        <translation>Fin de la reparación</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>Reparación terminada.

Las miniaturas, si las hay, aparecen como «archivo_[Tx]».
Son imágenes pequeñas de JPEG grandes.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>Download</name>
    <message>
        <source>The server sends more than an update can hold.</source>
        <translation>El servidor envía más de lo que cabe en una actualización.</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>La dirección de la actualización no es segura.</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>El servidor tarda demasiado.</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>Actualización</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>DrgDrp</name>
    <message>
        <source>Remove file</source>
        <translation>Quitar el archivo</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Quitar los marcados</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>Carpeta existente</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>Carpeta existente</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>Nombre de carpeta: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>Cambiar nombre a: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renombrar</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>no se puede leer el archivo</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>el archivo es demasiado grande</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>no es un HEIC o solo contiene teselas</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>el archivo solo contiene teselas o no se ha reescrito</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>el índice de las teselas está dañado</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>no se puede descodificar la imagen</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>la imagen tiene demasiados píxeles para mostrarla</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>no hay memoria para la imagen</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>no se puede iniciar el descodificador</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>el descodificador se interrumpió: el archivo está dañado o exige demasiado</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>una caja que describe la imagen está dañada</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>ningún elemento del archivo une las teselas de la imagen</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>no se puede escribir la imagen en este formato</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>la decodificación tardó demasiado</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>la decodificación se interrumpió</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 archivo, %1 marcado</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n archivo, %1 marcados</numerusform>
            <numerusform>%n archivos, %1 marcados</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>Quitar el archivo</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>Quita de la lista el archivo elegido. El archivo mismo se queda donde está.</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>Quitar los marcados</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>Quita de la lista los archivos marcados. Los archivos mismos se quedan donde están.</translation>
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
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>PanelOpener</name>
    <message>
        <source>A double-click, Return or F11 shows the result in full.</source>
        <translation>Doble clic, Intro o F11 muestra el resultado completo.</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>El archivo mostrado no se reemplaza. Elija otro nombre.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>No se puede escribir «%1»: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Miniatura</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>La imagen pequeña que la cámara puso en el archivo. Compare: muestra la misma escena.</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Imagen anterior</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Imagen siguiente</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Reducir</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Ampliar</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>Tamaño real</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajustar</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1 (%2 de %3)</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>Leyendo la imagen...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>No se puede mostrar el archivo: %1.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 píxeles</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>JPEG tal cual (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC que otros programas abren (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>El nombre debe terminar en .jpg o .png.</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>El nombre debe terminar en .png, .jpg o .heic.</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>Esta imagen ya no está. Volver atrás y empezar de nuevo eliminan los resultados no guardados.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>Principal</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Actualización principal</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>Secundaria</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Actualización secundaria</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>No hay actualizaciones disponibles.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>Tiempo transcurrido: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB de </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB copiados) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Velocidad de transferencia: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/s </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>Este programa lo actualiza el sistema que lo instaló.</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>Espere: el proceso tardará de varios </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>segundos a unos minutos. </translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>Esta actualización no es del fabricante y no se instaló.</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>Selección de la muestra</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>Añada un HEIC de muestra:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Añada un JPEG de muestra:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>Archivo dañado: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>Reparación avanzada</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>Añada un JPEG de muestra:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Examinar</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> Aplicar a todos los archivos del mismo formato.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>reconstruido a partir de sus segmentos</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>una imagen dentro del archivo</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>reconstruido desde el primer segmento utilizable</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>reconstruido con la cabecera de la muestra</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>hallado mediante el índice del archivo</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>hallado al examinar el archivo</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>su índice se ha escrito de nuevo</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>No se puede leer el archivo.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>El archivo está vacío.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>El archivo es demasiado grande.</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>Este formato de archivo no se puede reparar.</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>La cabecera se ha perdido. Una muestra de la misma cámara puede ayudar.</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>Lo que se pudo reconstruir no se abre como imagen.</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>El archivo no contiene una imagen de vista previa.</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>El número de teselas de la imagen no es conocido.</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>El índice se ha perdido. Una muestra de la misma cámara puede ayudar.</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>El disco está lleno o no se puede escribir en él.</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>Detenido antes de terminar este archivo.</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>Tablas de cuantificación sustituidas: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>Tablas de Huffman sustituidas: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>Bytes no válidos de los datos de imagen neutralizados: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>Bytes omitidos: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>No se pudo obtener nada de este archivo.</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>efectos de una transferencia en modo texto deshechos</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>datos de imagen hallados</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>cabecera de la imagen corregida</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>intervalo de reinicio hallado</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>tablas de Huffman sustituidas por otras conocidas</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>recuentos de Huffman corregidos</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>símbolos de Huffman hallados</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>tamaño hallado</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>tablas de cuantificación corregidas</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>códigos no válidos corregidos</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>bytes dañados reparados</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>intervalos de reinicio colocados en su sitio</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>partes desplazadas devueltas a su sitio</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>exacto</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>probable</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>una conjetura</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>El archivo es demasiado grande para el rescate profundo.</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>El rescate profundo no encontró nada mejor.</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>Rescatado (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>Rescatado: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>El archivo se abre tal como está.</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>El archivo no contiene datos de imagen.</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>La muestra no es adecuada para este archivo.</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>Solo están las teselas de la imagen, que ningún programa abre. Una muestra de la misma cámara puede ayudar.</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>El rescate profundo puede recuperar más.</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>La imagen está completa.</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>Solo está una parte de la imagen (alrededor del %1 %).</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>La imagen es dudosa: algunas partes pueden estar mal.</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>Sus bytes son de un formato distinto del que dice su nombre: %1.</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>Mostrar todos</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>También se guardan los archivos marcados ocultos.</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 archivo:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n archivo:</numerusform>
            <numerusform>%n archivos:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>%n sano</numerusform>
            <numerusform>%n sanos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>%n completo</numerusform>
            <numerusform>%n completos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>%n parcial</numerusform>
            <numerusform>%n parciales</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>%n dudoso</numerusform>
            <numerusform>%n dudosos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>%n sin evaluar</numerusform>
            <numerusform>%n sin evaluar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>%n sin reparar</numerusform>
            <numerusform>%n sin reparar</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>Muestra solo estos archivos, o de nuevo todos. Lo que se guarda no cambia.</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>Después: pulse «%1» en su fila y dé una foto intacta de la misma cámara.</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>Después: pruebe con otra foto intacta de la misma cámara y del mismo tamaño.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>Después: aquí nada ayuda; busque otra copia del archivo.</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>Después: compruebe que el archivo sigue ahí y se puede leer, y repárelo de nuevo.</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>Después: libere espacio y repárelo de nuevo.</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>Después: vuelva atrás y repárelo de nuevo.</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>Después: aquí nada ayuda; quizá un programa para fotos RAW abra todavía el archivo.</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>Después: dé a una copia la extensión de ese formato y repare la copia.</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>Una miniatura: una imagen pequeña junto a la foto.</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>La vista previa de la cámara; los datos RAW que la acompañan no se reparan.</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>No se abre como imagen.</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>No hay que hacer nada.</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>Después: guárdela. No hay que hacer nada más.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>Después: mire la imagen antes de guardarla.</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>Después: mire la imagen antes de guardarla; no queda manera de encontrar más de ella.</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>No se sabe cuánto hay de la imagen.</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Origen: %1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>Después: pulse «%1» y dé una foto intacta de la misma cámara.</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>La imagen en sí no se obtuvo; solo otras más pequeñas que estaban dentro del archivo.</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>Probar otra muestra</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Probar una muestra</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>Archivo no válido</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>Falta un marcador importante. El archivo no se puede reparar.</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>No se encontró ninguna miniatura</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>Falta un marcador. No se pudo extraer la miniatura</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(Miniatura dañada)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(Sin miniatura)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(Archivo no válido)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1: omitido</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1: omitido, el mismo archivo ya está ahí</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>Se guardaron %1 de %2 archivos.</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>Guardados con los datos de la cámara (fecha, lugar, orientación, colores): %1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>No se encontraron datos de la cámara (fecha, lugar, orientación, colores) que devolver.</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>A las fotos guardadas les faltan los datos de la cámara (fecha, lugar, orientación, colores).</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 Para guardarlas con ellos, elija antes «Devolver los datos de la cámara» en el menú Archivo.</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 se guardó como %2, porque una de las fotos que se reparan tiene allí ese nombre.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>«%1» no puede ser el nombre de un archivo</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>la pregunta al respecto se cerró sin respuesta</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>el archivo reparado ya no está en la carpeta de trabajo</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>un archivo tiene ese nombre</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>no se puede crear la carpeta «%1»: %2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>el destino «%1» no es una carpeta</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>el destino «%1» está dentro de la carpeta de trabajo del programa</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>el guardado se canceló antes</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>el disco está lleno</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>se ha agotado su parte del disco (cuota)</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>el disco es de solo lectura</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>no tiene permiso para escribir ahí</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>la carpeta ya no está</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>ya hay un archivo con ese nombre</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>el archivo es mayor de lo que se puede escribir ahí</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>el nombre es demasiado largo</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>el disco falló o se retiró</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>el archivo reparado está vacío</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>No se guardó todo</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>Fin del guardado</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>Imágenes guardadas correctamente.</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Haga clic aquí</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>Lo que no se guardó</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>Guardado en:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>Probar el rescate profundo con 1 archivo</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>Probar el rescate profundo con %n archivo</numerusform>
            <numerusform>Probar el rescate profundo con %n archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>Examina más a fondo los archivos no reparados o reparados en parte. Lo obtenido se conserva.</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>Probar el rescate profundo</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>No se puede bloquear la carpeta de trabajo «%1».</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>El programa ya está en ejecución y son demasiados archivos para pasárselos de una vez.</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>El programa ya está en ejecución pero ocupado; aún no ha respondido.</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>Otro programa está usando la carpeta de trabajo «%1».</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>La carpeta de trabajo «%1» está siendo usada por %2 (proceso %3 en %4).</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>El programa está dañado. Vuelva a instalarlo. (%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>El programa que se cerró todavía está borrando sus archivos de trabajo. Este se inicia después.</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>Detención de la reparación</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>¿Desea detener el proceso en curso?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>No podrá reanudar el proceso desde aquí. Se descartarán todos los cambios. </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
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
        <translation>Novedades</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>Ver la página</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>Detalles de la nueva versión: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>Actualización: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>Actualización principal</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>Actualización secundaria</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>la carpeta de trabajo «%1» pertenece a otro usuario</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>otros pueden escribir en la carpeta de trabajo «%1»</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>otros pueden entrar en la carpeta de trabajo «%1»; sus permisos deben ser 0700</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>no se puede crear la carpeta de trabajo «%1»: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>la carpeta de trabajo «%1» es un enlace simbólico</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>la carpeta de trabajo «%1» no es una carpeta</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>no se puede abrir la carpeta de trabajo «%1»</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>no se puede usar la carpeta de trabajo «%1»: %2</translation>
    </message>
</context>
</TS>
