<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>关于 Kesmira</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>修复损坏的照片。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>计算机</translation>
    </message>
    <message>
        <source>System</source>
        <translation>系统</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>系统版本</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>处理器</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>使用 Qt %1（LGPL 3）、libheif（LGPL 3）和 libarchive（BSD）构建。许可证随程序文档提供。</translation>
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
        <translation>高级修复

使用此选项修复严重损坏的 JPEG。 
单击“下一步”，添加一张用同一设备拍摄的 
相同格式的“样本 JPEG”。 
修复过程中，样本和损坏的 JPEG 
保持不变。</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>高级修复

使用此选项修复严重损坏的 HEIC。 
单击“下一步”，添加相同格式的“样本 HEIC </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation>。修复过程中，样本和损坏的 HEIC 保持不变。</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>”</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>合适的样本能用任何看图程序打开，来自同一部手机，拍摄方式与损坏的照片相同：用同一个摄像头、同样的设置、同样的握持方向。</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>合适的样本能用任何看图程序打开，来自同一相机或手机，拍摄方式与损坏的照片相同：同样的设置、同样的握持方向。</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>高级修复</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>同名文件</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>文件名：</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>重命名为：</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>覆盖</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>跳过</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>全部重命名</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>全部覆盖</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>全部跳过</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>此操作将清除修复结果。
是否返回上一页？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>BrowseRepair</name>
    <message>
        <source>Selected destination path is read-only (restricted by the operating system</source>
        <translation>所选目标路径为只读（受操作系统限制）。</translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>请选择其他位置以继续。</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>添加文件</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>单击以添加照片，或将 JPEG 文件拖到此处。</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>待修复的文件</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>修复结果</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>选择一个或多个要打开的文件</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  文件名</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  路径</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> 大小 (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> 修改日期</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> 创建日期</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   文件名</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> 路径</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> 大小 (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>修改日期</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>创建日期</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>该文件已在列表中。</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>概述(&amp;O)</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>技术支持</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>给技术支持发邮件(&amp;M)</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>提交咨询</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>知识库</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>检查更新(&amp;U)...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>关于 Kesmira(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>添加(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>修复(&amp;R)</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>停止(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>保存已修复的照片(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>返回(&amp;B)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>更多工具</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>恢复数据</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>监控驱动器</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>修复视频</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>恢复照片</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>未安装此工具。</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>单击“保存已修复的照片”可保存所有修复的照片。单击文件可预览。 </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>修复完成。</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>高级修复</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>已中止</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>正在修复文件 </translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>已修复</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>已提取</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>缩略图</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>高级修复</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>正在修复所选照片</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>根据照片数量和文件大小，可能需要一些时间。请等待处理完成。</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> 文件名</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> 类型</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> 分辨率</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>正在修复所选照片</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>正在修复文件：</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>更彻底地检查损坏的 JPEG 照片。抢救出的图像中有些部分可能是推测的。</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>深度抢救(&amp;D)</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>深度抢救：</translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>已抢救</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>尚未保存、将会丢失的结果：%1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>深度抢救</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>无法修复的格式：</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>不能拖放文件夹，因此未添加任何文件：</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>只能拖放 JPEG 文件；以下文件请用“添加”：</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>正在读取图像...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>之前的处理仍在结束和清除中，完成后开始修复。</translation>
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
        <translation>单击“添加”以添加损坏的 JPEG 文件。也可以将它们拖到上方区域。</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>从列表中移除</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修复</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>保存已修复的照片</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>显示缩略图</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>无法读取更新。</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>更新为空。</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>更新已损坏。</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>更新包含不应有的内容，已被拒绝。</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>无法解压更新：更新已损坏或磁盘已满。</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>已安装的程序不在原来的位置。</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>程序安装在您无法更改的位置。请由安装者进行更新。</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>更新中不包含程序。</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>无法安装新版本：%1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>保存照片时，其日期、地点、方向和颜色配置文件取自损坏的文件中完好的部分。</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>放回相机数据(&amp;C)</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>正在查找新版本...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>确定要退出吗？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>CompletionMsgObj</name>
    <message>
        <source>Repair Complete</source>
        <translation>修复完成</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>修复完成。

如有缩略图，将以“文件名_[Tx]”的形式列出。
缩略图是大尺寸 JPEG 的小图像。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>Download</name>
    <message>
        <source>The server sends more than an update can hold.</source>
        <translation>服务器发送的数据量超过更新允许的大小。</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>更新的地址不安全。</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>服务器响应时间过长。</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>DrgDrp</name>
    <message>
        <source>Remove file</source>
        <translation>移除此文件</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>移除勾选的文件</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>同名文件夹</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>同名文件夹</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>文件夹名称：</translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>重命名为：</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>覆盖</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>无法读取文件</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>文件过大</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>不是 HEIC，或只包含图像分块</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>文件只包含图像分块，或不是重写的文件</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>图像分块的索引已损坏</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>无法解码图像</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>图像像素过多，无法显示</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>内存不足，无法显示图像</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>无法启动解码器</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>解码器已中断：文件已损坏或要求过高</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>描述图像的数据盒已损坏</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>文件中没有将图像分块拼合起来的项</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>无法以此格式写入图像</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>解码耗时过长</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>解码已被中止</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 个文件，已勾选 %1 个</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n 个文件，已勾选 %1 个</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>移除此文件</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>将选中的文件从列表中移除。文件本身保持不动。</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>移除勾选的文件</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>将勾选的文件从列表中移除。文件本身保持不动。</translation>
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
        <translation>否</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>PanelOpener</name>
    <message>
        <source>A double-click, Return or F11 shows the result in full.</source>
        <translation>双击、按回车键或 F11 可完整显示结果。</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>不会替换正在显示的文件。请选择其他名称。</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>缩略图</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>相机存入文件中的小图。可作对照：它显示的是同一场景。</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>上一张图片</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>下一张图片</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>原始大小</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1（%2/%3）</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>正在读取图像...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>无法显示此文件：%1。</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 像素</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>原样 JPEG (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;其他程序可打开的 HEIC (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>名称必须以 .jpg 或 .png 结尾。</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>名称必须以 .png、.jpg 或 .heic 结尾。</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>此图像已不存在。返回或重新开始会清除尚未保存的结果。</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>主要</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>主要更新</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>次要</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>次要更新</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>没有可用的更新。</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>已用时间：</translation>
    </message>
    <message>
        <source> sec </source>
        <translation> 秒 </translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB / </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB 已复制) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>传输速率：</translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/秒 </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>此程序由安装它的系统进行更新。</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>请稍候，此过程可能需要 </translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>几秒到几分钟。</translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>此更新并非来自开发者，因此未安装。</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>选择样本</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>添加样本 HEIC：</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>添加样本 JPEG：</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>损坏的文件：%1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>高级修复</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>添加样本 JPEG：</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> 应用于所有相同格式的文件。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修复</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>由自身的数据段重建</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>文件内的图像</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>从第一个可用数据段重建</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>用样本的文件头重建</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>通过文件自身的索引找到</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>通过搜索文件找到</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>索引已重新写入</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>无法读取文件。</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>文件过大。</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>此文件格式无法修复。</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>文件头已丢失。同一相机的样本可能有帮助。</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>重建的内容无法作为图像打开。</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>文件不含预览图像。</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>图像分块的数量不在已知范围内。</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>索引已丢失。同一相机的样本可能有帮助。</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>磁盘已满或无法写入。</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>在此文件完成前已停止。</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>已替换的量化表：%n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>已替换的霍夫曼表：%n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>已替换为无害值的图像数据非法字节：%1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>跳过的字节：%1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>未能从此文件中得到任何内容。</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>已消除文本模式传输的影响</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>已找到图像数据</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>已修正帧头</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>已确定重启间隔</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>已用已知的霍夫曼表替换</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>已修正霍夫曼计数</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>已找到霍夫曼符号</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>已确定尺寸</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>已修正量化表</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>已修正非法代码</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>已修复受损字节</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>重启区间已归位</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>错位部分已移回</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>精确</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>很可能</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>推测</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>文件过大，无法进行深度抢救。</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>深度抢救未找到更好的结果。</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>已抢救 (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>已抢救：%1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>此文件可以直接打开。</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>此文件不含图像数据。</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>样本与此文件不匹配。</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>只有图像分块，没有程序能打开。同一相机的样本可能有帮助。</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>深度抢救或许能找回更多内容。</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>图像完整。</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>只有图像的一部分（约 %1 %）。</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>图像存疑：其中某些部分可能不对。</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>其内容的格式与文件名不符：%1。</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>全部显示</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>隐藏的勾选文件也会保存。</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 个文件：</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n 个文件：</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>完好 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>完整 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>部分 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>存疑 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not judged</source>
        <translation>
            <numerusform>未判定 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not repaired</source>
        <translation>
            <numerusform>未修复 %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>只显示这些文件，或重新显示全部。保存的内容不变。</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>下一步：在该行按“%1”，并提供同一相机拍摄的完好照片。</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>下一步：换一张同一相机、相同尺寸的完好照片再试。</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>下一步：此处已无能为力；请寻找该文件的其他副本。</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>下一步：确认文件仍在且可读取，然后重新修复。</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>下一步：腾出空间，然后重新修复。</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>下一步：返回并重新修复。</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>下一步：此处已无能为力；处理 RAW 照片的程序或许仍能打开该文件。</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>下一步：为其副本改用该格式的扩展名，然后修复副本。</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>缩略图：照片附带的小图像。</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>相机自带的预览图；其旁的 RAW 数据未作修复。</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>无法作为图像打开。</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>无需任何处理。</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>下一步：保存。无需其他处理。</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>下一步：保存前请先查看图像。</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>下一步：保存前请先查看图像；已没有办法找回更多内容。</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>不清楚图像有多少。</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>源文件：%1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>下一步：按“%1”，并提供同一相机拍摄的完好照片。</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>未能得到照片本身，只得到文件中所含的较小图像。</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>换一个样本再试</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>用样本试试</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>无效文件</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>缺少重要标记。无法修复文件。</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>未找到缩略图</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>缺少标记。无法提取缩略图</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(缩略图损坏)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(无缩略图)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(无效文件)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1：已跳过</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1：已跳过，相同的文件已存在</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>已保存 %1 个文件，共 %2 个。</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>已连同相机数据（日期、地点、方向、颜色）保存：%1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>未找到可放回的相机数据（日期、地点、方向、颜色）。</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>保存的照片缺少相机数据（日期、地点、方向、颜色）。</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 要连同这些数据保存，请先在“文件”菜单中选择“放回相机数据”。</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 已保存为 %2，因为待修复的照片之一在该处使用此名称。</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>“%1”不能作为文件名</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>相关询问未作回答即被关闭</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>修复后的文件已不在工作文件夹中</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>已有同名文件</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>无法创建文件夹“%1”：%2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>目标“%1”不是文件夹</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>目标“%1”位于程序的工作文件夹内</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>在此之前保存已取消</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>您的磁盘配额已用完</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>磁盘为只读</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>您没有写入该处的权限</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>文件夹已不存在</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>该名称的文件已存在</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>文件大于该处允许写入的大小</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>名称过长</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>磁盘出现故障或已移除</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>修复后的文件为空</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>未全部保存</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>保存完成</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>图像已成功保存。</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>单击此处</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>未保存的内容</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>保存位置：</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>对 1 个文件尝试深度抢救</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>对 %n 个文件尝试深度抢救</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>更彻底地检查未能修复或只修复了一部分的文件。已有的结果保持不变。</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>尝试深度抢救</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>无法锁定工作文件夹“%1”。</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>程序已在运行，一次传递的文件过多。</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>程序已在运行但正忙，尚未响应。</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>工作文件夹“%1”正被其他程序使用。</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>工作文件夹“%1”正被 %2 使用（%4 上的进程 %3）。</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>程序已损坏，请重新安装。(%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>已关闭的程序仍在清除其工作文件，完成后启动本程序。</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>停止修复</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>是否停止当前处理？</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>无法从此处继续处理。所有更改都将被放弃。 </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>UpdateOffer</name>
    <message>
        <source>What&apos;s New</source>
        <translation>新增功能</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>访问页面</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>新版本详情： 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>更新：Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>主要更新</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>次要更新</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>工作文件夹“%1”属于其他用户</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>其他用户可以写入工作文件夹“%1”</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>其他用户可以进入工作文件夹“%1”；其权限必须为 0700</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>无法创建工作文件夹“%1”：%2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>工作文件夹“%1”是符号链接</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>工作文件夹“%1”不是文件夹</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>无法打开工作文件夹“%1”</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>无法使用工作文件夹“%1”：%2</translation>
    </message>
</context>
</TS>
