<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About Kesmira</source>
        <translation>Kesmira について</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Repairs damaged photographs.</source>
        <translation>壊れた写真を修復します。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>コンピューター</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>System version</source>
        <translation>システムのバージョン</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>プロセッサー</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>Built with Qt %1 (LGPL 3), libheif (LGPL 3) and libarchive (BSD). The licences lie with the program&apos;s documentation.</source>
        <translation>Qt %1（LGPL 3）、libheif（LGPL 3）、libarchive（BSD）を使用しています。ライセンスはプログラムの文書に付属しています。</translation>
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
        <translation>高度な修復

損傷のひどい JPEG を修復します。 
［次へ］をクリックし、同じ機器で撮影した 
同じ形式の「サンプル JPEG」を追加してください。 
修復中、サンプルと壊れた JPEG は 
変更されません。</translation>
    </message>
    <message>
        <source>Advance Repair

Use this option to repair severely damaged HEIC. 
Click Next to add a &apos; sample HEIC </source>
        <translation>高度な修復

損傷のひどい HEIC を修復します。 
［次へ］をクリックし、同じ形式の「サンプル HEIC </translation>
    </message>
    <message>
        <source> of the same format.The sample and the damaged HEIC remain unchanged during repair process.</source>
        <translation>を追加してください。修復中、サンプルと壊れた HEIC は変更されません。</translation>
    </message>
    <message>
        <source> &apos;</source>
        <comment>closes the quotation of the sample&apos;s kind</comment>
        <translation>」</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same phone, taken as the damaged photo was: with the same camera of it, the same settings, and the phone held the same way.</source>
        <translation>よいサンプルとは、どのビューアーでも開き、同じスマートフォンで、壊れた写真と同じように撮られたものです。使ったカメラ（前面・背面）、設定、持ち方が同じものを選んでください。</translation>
    </message>
    <message>
        <source>A good sample opens in any viewer and comes from the same camera or phone, taken as the damaged photo was: with the same settings, and the camera held the same way.</source>
        <translation>よいサンプルとは、どのビューアーでも開き、同じカメラまたはスマートフォンで、壊れた写真と同じように撮られたものです。設定とカメラの向きが同じものを選んでください。</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>高度な修復</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
</context>
<context>
    <name>AlreadyExistFileDlgObj</name>
    <message>
        <source>File Exists</source>
        <translation>同名のファイル</translation>
    </message>
    <message>
        <source>File Name :</source>
        <translation>ファイル名:</translation>
    </message>
    <message>
        <source>Rename to :</source>
        <translation>新しい名前:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前を変更</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>上書き</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>スキップ</translation>
    </message>
    <message>
        <source>Rename All</source>
        <translation>すべて変更</translation>
    </message>
    <message>
        <source>Overwrite All</source>
        <translation>すべて上書き</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>すべてスキップ</translation>
    </message>
</context>
<context>
    <name>BackApplicationDlgObj</name>
    <message>
        <source>Back</source>
        <translation>前の画面への移動</translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>修復結果が消去されます。
前の画面に戻りますか？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>BrowseRepair</name>
    <message>
        <source>Selected destination path is read-only (restricted by the operating system</source>
        <translation>選択した保存先は読み取り専用です（オペレーティングシステムによる制限）。</translation>
    </message>
    <message>
        <source>Select a different location to proceed.</source>
        <translation>別の場所を選択してください。</translation>
    </message>
    <message>
        <source>Kesmira</source>
        <translation>Kesmira</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>ファイルを追加</translation>
    </message>
    <message>
        <source>Click to add photos, or drag JPEG files here.</source>
        <translation>クリックして写真を追加するか、JPEG ファイルをここにドラッグしてください。</translation>
    </message>
    <message>
        <source>Files to repair</source>
        <translation>修復するファイル</translation>
    </message>
    <message>
        <source>Repair results</source>
        <translation>修復結果</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>開くファイルの選択</translation>
    </message>
    <message>
        <source>  File Name</source>
        <translation>  ファイル名</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  パス</translation>
    </message>
    <message>
        <source> Size (KB)</source>
        <translation> サイズ (KB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> 更新日時</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> 作成日時</translation>
    </message>
    <message>
        <source>   File Name</source>
        <translation>   ファイル名</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> パス</translation>
    </message>
    <message>
        <source> Size(KB)</source>
        <translation> サイズ (KB)</translation>
    </message>
    <message>
        <source>Modified date</source>
        <translation>更新日時</translation>
    </message>
    <message>
        <source>Created date</source>
        <translation>作成日時</translation>
    </message>
    <message>
        <source>File name already added to list.</source>
        <translation>このファイルは既にリストに追加されています。</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>menu</comment>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>概要(&amp;O)</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>サポート</translation>
    </message>
    <message>
        <source>&amp;Mail to support</source>
        <translation>サポートにメール(&amp;M)</translation>
    </message>
    <message>
        <source>Submit an enquiry</source>
        <translation>お問い合わせ</translation>
    </message>
    <message>
        <source>Knowledge base</source>
        <translation>ナレッジベース</translation>
    </message>
    <message>
        <source>Check for &amp;updates...</source>
        <translation>アップデートを確認(&amp;U)...</translation>
    </message>
    <message>
        <source>&amp;About Kesmira</source>
        <translation>Kesmira について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>追加(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>修復(&amp;R)</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>停止(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Save Repaired Files...</source>
        <translation>修復した写真を保存(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>戻る(&amp;B)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>終了(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>More Tools</source>
        <translation>その他のツール</translation>
    </message>
    <message>
        <source>Recover Data</source>
        <translation>データを復元</translation>
    </message>
    <message>
        <source>Monitor Drive</source>
        <translation>ドライブを監視</translation>
    </message>
    <message>
        <source>Repair Video</source>
        <translation>動画を修復</translation>
    </message>
    <message>
        <source>Recover Photo</source>
        <translation>写真を復元</translation>
    </message>
    <message>
        <source>This tool is not installed.</source>
        <translation>このツールはインストールされていません。</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired photos. Click the file to preview it. </source>
        <translation>［修復した写真を保存］をクリックすると、修復した写真をすべて保存できます。ファイルをクリックするとプレビューが表示されます。 </translation>
    </message>
    <message>
        <source>Repair process completed.</source>
        <translation>修復が完了しました。</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>高度な修復</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Repairing file </source>
        <translation>ファイルを修復中 </translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>修復済み</translation>
    </message>
    <message>
        <source>Extracted</source>
        <translation>抽出</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>サムネイル</translation>
    </message>
    <message>
        <source>Advance repair</source>
        <translation>高度な修復</translation>
    </message>
    <message>
        <source>Repairing Selected photos</source>
        <translation>選択した写真を修復しています</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of photos and their file size. Please wait while the process is completed.</source>
        <translation>写真の枚数やファイルサイズによっては時間がかかります。処理が完了するまでお待ちください。</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> ファイル名</translation>
    </message>
    <message>
        <source> Type</source>
        <translation> 種類</translation>
    </message>
    <message>
        <source> Resolution</source>
        <translation> 解像度</translation>
    </message>
    <message>
        <source>Repairing selected photos</source>
        <translation>選択した写真を修復しています</translation>
    </message>
    <message>
        <source>Repairing File : </source>
        <translation>修復中のファイル: </translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>フォルダーの選択</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.</source>
        <translation>壊れた JPEG 写真をより詳しく調べます。サルベージした画像の一部は推測によることがあります。</translation>
    </message>
    <message>
        <source>&amp;Deep salvage</source>
        <translation>ディープサルベージ(&amp;D)</translation>
    </message>
    <message>
        <source>Deep salvage: </source>
        <translation>ディープサルベージ: </translation>
    </message>
    <message>
        <source>Salvaged</source>
        <translation>サルベージ</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>詳細</translation>
    </message>
    <message>
        <source>Results that have not been saved and would be lost: %1</source>
        <translation>保存されておらず、失われる結果: %1</translation>
    </message>
    <message>
        <source>Deep salvage</source>
        <translation>ディープサルベージ</translation>
    </message>
    <message>
        <source>Not of a format that can be repaired:</source>
        <translation>修復できない形式です:</translation>
    </message>
    <message>
        <source>Folders can&apos;t be dropped, so nothing was added:</source>
        <translation>フォルダーはドロップできないため、何も追加されませんでした:</translation>
    </message>
    <message>
        <source>Only JPEG files can be dropped; take Add for:</source>
        <translation>ドロップできるのは JPEG ファイルだけです。次のファイルには［追加］を使ってください:</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>画像を読み込んでいます...</translation>
    </message>
    <message>
        <source>What was begun before is still being ended and wiped; the run starts after that.</source>
        <translation>前の処理の終了と消去がまだ続いています。終わりしだい修復を始めます。</translation>
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
        <translation>［追加］をクリックして壊れた JPEG ファイルを追加します。上の領域にドラッグすることもできます。</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Remove Files</source>
        <translation>リストから外す</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>修復した写真を保存</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Show Thumbnail</source>
        <translation>サムネイルを表示</translation>
    </message>
</context>
<context>
    <name>BundleInstall</name>
    <message>
        <source>The update can&apos;t be read.</source>
        <translation>アップデートを読み込めません。</translation>
    </message>
    <message>
        <source>The update is empty.</source>
        <translation>アップデートが空です。</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>アップデートが壊れています。</translation>
    </message>
    <message>
        <source>The update holds what doesn&apos;t belong there, and was refused.</source>
        <translation>アップデートに不正な内容が含まれるため、拒否しました。</translation>
    </message>
    <message>
        <source>The update can&apos;t be unpacked: it is damaged, or the disk is full.</source>
        <translation>アップデートを展開できません。壊れているか、ディスクがいっぱいです。</translation>
    </message>
    <message>
        <source>The installed program isn&apos;t where it was.</source>
        <translation>インストールされたプログラムが元の場所にありません。</translation>
    </message>
    <message>
        <source>This program is installed where you can&apos;t change it. Its update comes from who installed it.</source>
        <translation>変更できない場所にインストールされています。更新はインストールした管理者が行います。</translation>
    </message>
    <message>
        <source>The update doesn&apos;t hold the program.</source>
        <translation>アップデートにプログラムが含まれていません。</translation>
    </message>
    <message>
        <source>The new version can&apos;t be put in place: %1</source>
        <translation>新しいバージョンを配置できません: %1</translation>
    </message>
</context>
<context>
    <name>CameraDataSwitch</name>
    <message>
        <source>When photos are saved, their date, place, orientation and colour profile are taken from the damaged files, where they are sound.</source>
        <translation>保存するとき、写真の日付、場所、向き、カラープロファイルを、壊れたファイルの中で無事なものから取り込みます。</translation>
    </message>
    <message>
        <source>Put the &amp;camera&apos;s data back</source>
        <translation>カメラの情報を戻す(&amp;C)</translation>
    </message>
</context>
<context>
    <name>CheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Looking for a new version...</source>
        <translation>新しいバージョンを確認しています...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlgObj</name>
    <message>
        <source>Exit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>終了してもよろしいですか？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>CompletionMsgObj</name>
    <message>
        <source>Repair Complete</source>
        <translation>修復完了</translation>
    </message>
    <message>
        <source>Repair process completed.

Thumbnails are listed as &apos;filename_Tx&apos; if available.
Thumbnails are small sized images of large JPEGs.</source>
        <translation>修復が完了しました。

サムネイルがある場合は「ファイル名_[Tx]」と表示されます。
サムネイルは大きな JPEG の小さな画像です。</translation>
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
        <translation>サーバーから送られるデータがアップデートとしては大きすぎます。</translation>
    </message>
    <message>
        <source>The address of the update isn&apos;t a safe one.</source>
        <translation>更新のアドレスが安全ではありません。</translation>
    </message>
    <message>
        <source>The server takes too long.</source>
        <translation>サーバーの応答に時間がかかりすぎています。</translation>
    </message>
</context>
<context>
    <name>DownloadApp</name>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>このファイルを外す</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>チェックしたものを外す</translation>
    </message>
</context>
<context>
    <name>FolderExistObj</name>
    <message>
        <source>Folder Exists</source>
        <translation>同名のフォルダー</translation>
    </message>
    <message>
        <source>Folder Exist</source>
        <translation>同名のフォルダー</translation>
    </message>
    <message>
        <source>Folder Name : </source>
        <translation>フォルダー名: </translation>
    </message>
    <message>
        <source>Rename to : </source>
        <translation>新しい名前: </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>上書き</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前を変更</translation>
    </message>
</context>
<context>
    <name>HeicProblem</name>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>ファイルを読み込めません</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <source>it isn&apos;t a HEIC, or holds image tiles alone</source>
        <translation>HEIC ではないか、画像タイルだけが含まれています</translation>
    </message>
    <message>
        <source>the file holds image tiles alone, or isn&apos;t a rewritten one</source>
        <translation>画像タイルだけが含まれるか、書き直されていません</translation>
    </message>
    <message>
        <source>the index of the picture&apos;s tiles is broken</source>
        <translation>画像タイルの索引が壊れています</translation>
    </message>
    <message>
        <source>the picture can&apos;t be decoded</source>
        <translation>画像をデコードできません</translation>
    </message>
    <message>
        <source>the picture has more pixels than can be shown</source>
        <translation>画像のピクセル数が多すぎて表示できません</translation>
    </message>
    <message>
        <source>there is no memory for the picture</source>
        <translation>画像のためのメモリーが足りません</translation>
    </message>
    <message>
        <source>the decoder can&apos;t be started</source>
        <translation>デコーダーを起動できません</translation>
    </message>
    <message>
        <source>the decoder broke off: the file is damaged, or asks for too much</source>
        <translation>デコーダーが中断しました: ファイルが壊れているか、要求が大きすぎます</translation>
    </message>
    <message>
        <source>a box that describes the picture is broken</source>
        <translation>画像を記述するボックスが壊れています</translation>
    </message>
    <message>
        <source>no item of the file puts the picture&apos;s tiles together</source>
        <translation>画像タイルをまとめる項目がファイルにありません</translation>
    </message>
    <message>
        <source>the picture can&apos;t be written in this format</source>
        <translation>画像をこの形式で書き込めません</translation>
    </message>
    <message>
        <source>the decoder took too long</source>
        <translation>デコードに時間がかかりすぎました</translation>
    </message>
    <message>
        <source>the decoder was stopped</source>
        <translation>デコードが中止されました</translation>
    </message>
</context>
<context>
    <name>ListCount</name>
    <message>
        <source>1 file, %1 ticked</source>
        <translation>1 個のファイル、チェック %1 個</translation>
    </message>
    <message numerus="yes">
        <source>%n files, %1 ticked</source>
        <translation>
            <numerusform>%n 個のファイル、チェック %1 個</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListTools</name>
    <message>
        <source>Remove file</source>
        <translation>このファイルを外す</translation>
    </message>
    <message>
        <source>Takes the chosen file off the list. The file itself stays where it is.</source>
        <translation>選んだファイルをリストから外します。ファイルそのものは元の場所に残ります。</translation>
    </message>
    <message>
        <source>Remove ticked</source>
        <translation>チェックしたものを外す</translation>
    </message>
    <message>
        <source>Takes the ticked files off the list. The files themselves stay where they are.</source>
        <translation>チェックしたファイルをリストから外します。ファイルそのものは元の場所に残ります。</translation>
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
        <translation>いいえ</translation>
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
        <translation>ダブルクリック、Enter キー、F11 キーで結果を大きく表示します。</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>The file that is shown isn&apos;t replaced; choose another name.</source>
        <translation>表示中のファイルは置き換えられません。別の名前を指定してください。</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be written: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>サムネイル</translation>
    </message>
    <message>
        <source>The small picture that the camera has put into the file. Compare: it shows the same scene.</source>
        <translation>カメラがファイルに入れた小さな画像です。同じ場面が写っているので、見比べてください。</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>前の画像</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>次の画像</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>縮小</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Full size</source>
        <translation>実寸大</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>全体を表示</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>%1 (%2 of %3)</source>
        <translation>%1（%2／%3）</translation>
    </message>
    <message>
        <source>Reading the picture ...</source>
        <translation>画像を読み込んでいます...</translation>
    </message>
    <message>
        <source>This file can&apos;t be shown: %1.</source>
        <translation>このファイルは表示できません: %1。</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 ピクセル</translation>
    </message>
    <message>
        <source>JPEG as it is (*.jpg *.jpeg);;PNG (*.png)</source>
        <translation>元のままの JPEG (*.jpg *.jpeg);;PNG (*.png)</translation>
    </message>
    <message>
        <source>PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)</source>
        <translation>PNG (*.png);;JPEG (*.jpg *.jpeg);;他のプログラムで開ける HEIC (*.heic)</translation>
    </message>
    <message>
        <source>The name must end in .jpg or .png.</source>
        <translation>名前の末尾は .jpg か .png にしてください。</translation>
    </message>
    <message>
        <source>The name must end in .png, .jpg or .heic.</source>
        <translation>名前の末尾は .png、.jpg、.heic のいずれかにしてください。</translation>
    </message>
    <message>
        <source>This picture isn&apos;t there any more. Going back and starting again remove results that weren&apos;t saved.</source>
        <translation>この画像はもうありません。戻るときややり直すときに、保存されていない結果は削除されます。</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Major</source>
        <translation>メジャー</translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>メジャーアップデート</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>マイナー</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>マイナーアップデート</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>利用できるアップデートはありません。</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>Time Elapsed: </source>
        <translation>経過時間: </translation>
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
        <translation> MB コピー済み) </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>転送速度: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/秒 </translation>
    </message>
    <message>
        <source>This program is updated by the system that installed it.</source>
        <translation>このプログラムはインストールに使われたシステムによって更新されます。</translation>
    </message>
    <message>
        <source>Please wait as this process will take several </source>
        <translation>しばらくお待ちください。この処理には</translation>
    </message>
    <message>
        <source>seconds to few minutes </source>
        <translation>数秒から数分かかります。</translation>
    </message>
    <message>
        <source>This isn&apos;t an update of the maker&apos;s, and it was not installed.</source>
        <translation>これは開発元の更新ではないため、インストールされませんでした。</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Add File</source>
        <translation>サンプルの選択</translation>
    </message>
    <message>
        <source>Add a sample HEIC :</source>
        <translation>サンプル HEIC を追加:</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>サンプル JPEG を追加:</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Damaged file: %1</source>
        <translation>壊れたファイル: %1</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlgObj</name>
    <message>
        <source>Advance Repair</source>
        <translation>高度な修復</translation>
    </message>
    <message>
        <source>Add a sample JPEG :</source>
        <translation>サンプル JPEG を追加:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>参照</translation>
    </message>
    <message>
        <source> Apply to all files of same format.</source>
        <translation> 同じ形式のすべてのファイルに適用します。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>rebuilt from its segments</source>
        <translation>セグメントから再構築</translation>
    </message>
    <message>
        <source>an image inside the file</source>
        <translation>ファイル内の画像</translation>
    </message>
    <message>
        <source>rebuilt from the first usable segment</source>
        <translation>最初の使用可能なセグメントから再構築</translation>
    </message>
    <message>
        <source>rebuilt with the header of the sample</source>
        <translation>サンプルのヘッダーで再構築</translation>
    </message>
    <message>
        <source>found through the file&apos;s own index</source>
        <translation>ファイルの索引から発見</translation>
    </message>
    <message>
        <source>found by searching the file</source>
        <translation>ファイルを検索して発見</translation>
    </message>
    <message>
        <source>its index was written anew</source>
        <translation>索引を書き直し</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>ファイルを読み込めません。</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>ファイルが空です。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>ファイルが大きすぎます。</translation>
    </message>
    <message>
        <source>The file isn&apos;t of a format that can be repaired.</source>
        <translation>修復できる形式のファイルではありません。</translation>
    </message>
    <message>
        <source>The header is lost. A sample from the same camera may help.</source>
        <translation>ヘッダーが失われています。同じカメラのサンプルが役立つ場合があります。</translation>
    </message>
    <message>
        <source>What could be rebuilt doesn&apos;t open as a picture.</source>
        <translation>再構築できたデータは画像として開けません。</translation>
    </message>
    <message>
        <source>The file holds no preview picture.</source>
        <translation>ファイルにプレビュー画像がありません。</translation>
    </message>
    <message>
        <source>The number of image tiles isn&apos;t one of the known ones.</source>
        <translation>画像タイルの数が既知のものではありません。</translation>
    </message>
    <message>
        <source>The index is lost. A sample from the same camera may help.</source>
        <translation>索引が失われています。同じカメラのサンプルが役立つ場合があります。</translation>
    </message>
    <message>
        <source>The disk is full or can&apos;t be written.</source>
        <translation>ディスクがいっぱいか、書き込めません。</translation>
    </message>
    <message>
        <source>Stopped before this file was done.</source>
        <translation>このファイルの完了前に停止しました。</translation>
    </message>
    <message>
        <source>Quantization tables replaced: %n</source>
        <translation>置き換えた量子化テーブル: %n</translation>
    </message>
    <message>
        <source>Huffman tables replaced: %n</source>
        <translation>置き換えたハフマンテーブル: %n</translation>
    </message>
    <message>
        <source>Illegal bytes of the picture data neutralised: %1</source>
        <translation>無効化した不正な画像データのバイト: %1</translation>
    </message>
    <message>
        <source>Bytes stepped over: %1</source>
        <translation>読み飛ばしたバイト: %1</translation>
    </message>
    <message>
        <source>Nothing came out of this file.</source>
        <translation>このファイルからは何も取り出せませんでした。</translation>
    </message>
    <message>
        <source>text transfer undone</source>
        <translation>テキストモード転送の影響を除去</translation>
    </message>
    <message>
        <source>picture data found</source>
        <translation>画像データを検出</translation>
    </message>
    <message>
        <source>frame mended</source>
        <translation>フレームヘッダーを修正</translation>
    </message>
    <message>
        <source>restart interval found</source>
        <translation>リスタート間隔を特定</translation>
    </message>
    <message>
        <source>Huffman tables taken from known ones</source>
        <translation>ハフマンテーブルを既知のものに置換</translation>
    </message>
    <message>
        <source>Huffman counts mended</source>
        <translation>ハフマン符号の個数を修正</translation>
    </message>
    <message>
        <source>Huffman symbols found</source>
        <translation>ハフマンのシンボルを特定</translation>
    </message>
    <message>
        <source>size found</source>
        <translation>サイズを特定</translation>
    </message>
    <message>
        <source>quantization tables mended</source>
        <translation>量子化テーブルを修正</translation>
    </message>
    <message>
        <source>illegal codes mended</source>
        <translation>不正なコードを修正</translation>
    </message>
    <message>
        <source>hit bytes repaired</source>
        <translation>損傷したバイトを修復</translation>
    </message>
    <message>
        <source>restart intervals put in place</source>
        <translation>リスタート区間を正しい位置に配置</translation>
    </message>
    <message>
        <source>shifted parts moved back</source>
        <translation>ずれた部分を元の位置に移動</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>確実</translation>
    </message>
    <message>
        <source>likely</source>
        <translation>ほぼ確実</translation>
    </message>
    <message>
        <source>a guess</source>
        <translation>推測</translation>
    </message>
    <message>
        <source>The file is too large for deep salvage.</source>
        <translation>ファイルが大きすぎるため、ディープサルベージできません。</translation>
    </message>
    <message>
        <source>Deep salvage found nothing better.</source>
        <translation>ディープサルベージでもより良い結果は得られませんでした。</translation>
    </message>
    <message>
        <source>Salvaged (%1)</source>
        <translation>サルベージ (%1)</translation>
    </message>
    <message>
        <source>Salvaged: %1 (%2)</source>
        <translation>サルベージ: %1 (%2)</translation>
    </message>
    <message>
        <source>It opens as it is.</source>
        <translation>このファイルはそのまま開けます。</translation>
    </message>
    <message>
        <source>The file holds no picture data.</source>
        <translation>このファイルには画像データがありません。</translation>
    </message>
    <message>
        <source>The sample doesn&apos;t fit this file.</source>
        <translation>サンプルがこのファイルに合いません。</translation>
    </message>
    <message>
        <source>Only the image tiles are there, which nothing opens. A sample from the same camera may help.</source>
        <translation>画像タイルだけがあり、開けるプログラムはありません。同じカメラのサンプルが役立つ場合があります。</translation>
    </message>
    <message>
        <source>Deep salvage may bring back more.</source>
        <translation>ディープサルベージでさらに取り戻せる場合があります。</translation>
    </message>
    <message>
        <source>The picture is whole.</source>
        <translation>画像は完全です。</translation>
    </message>
    <message>
        <source>Only part of the picture is there (about %1 %).</source>
        <translation>画像の一部だけがあります (約 %1 %)。</translation>
    </message>
    <message>
        <source>The picture is doubtful: parts of it may be wrong.</source>
        <translation>画像は不確かです。一部が正しくない可能性があります。</translation>
    </message>
    <message>
        <source>Its bytes are of another format than its name says: %1.</source>
        <translation>内容は名前とは異なる形式です: %1。</translation>
    </message>
</context>
<context>
    <name>ResultSummary</name>
    <message>
        <source>Show all</source>
        <translation>すべて表示</translation>
    </message>
    <message>
        <source>Hidden ticked files are saved, too.</source>
        <translation>非表示でもチェックしたファイルは保存されます。</translation>
    </message>
    <message>
        <source>1 file:</source>
        <translation>1 個のファイル:</translation>
    </message>
    <message numerus="yes">
        <source>%n files:</source>
        <translation>
            <numerusform>%n 個のファイル:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n healthy</source>
        <translation>
            <numerusform>無傷 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n whole</source>
        <translation>
            <numerusform>完全 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in part</source>
        <translation>
            <numerusform>一部 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n doubtful</source>
        <translation>
            <numerusform>不確か %n</numerusform>
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
            <numerusform>修復できず %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows these files alone, or all of them again. What is saved stays the same.</source>
        <translation>これらのファイルだけを表示、またはすべてを再表示します。保存されるものは変わりません。</translation>
    </message>
</context>
<context>
    <name>RowWords</name>
    <message>
        <source>Next: press &quot;%1&quot; in its row and give a healthy photo from the same camera.</source>
        <translation>次の手順: 行の［%1］を押し、同じカメラの無事な写真を指定してください。</translation>
    </message>
    <message>
        <source>Next: try another healthy photo from the same camera, of the same size.</source>
        <translation>次の手順: 同じカメラの、同じ大きさの別の無事な写真を試してください。</translation>
    </message>
    <message>
        <source>Next: nothing here helps; look for another copy of the file.</source>
        <translation>次の手順: ここでできることはありません。ファイルの別のコピーを探してください。</translation>
    </message>
    <message>
        <source>Next: see that the file is still there and can be read, then repair it again.</source>
        <translation>次の手順: ファイルがまだあり、読めることを確かめてから、もう一度修復してください。</translation>
    </message>
    <message>
        <source>Next: free some space, then repair it again.</source>
        <translation>次の手順: 空き容量を増やしてから、もう一度修復してください。</translation>
    </message>
    <message>
        <source>Next: go back and repair it again.</source>
        <translation>次の手順: 戻って、もう一度修復してください。</translation>
    </message>
    <message>
        <source>Next: nothing here helps; a program for raw photos may still open the file.</source>
        <translation>次の手順: ここでできることはありません。RAW 写真用のプログラムならファイルを開けるかもしれません。</translation>
    </message>
    <message>
        <source>Next: give a copy of it the suffix of that format, and repair the copy.</source>
        <translation>次の手順: コピーにその形式の拡張子を付け、コピーを修復してください。</translation>
    </message>
    <message>
        <source>A thumbnail: a small picture beside the photo.</source>
        <translation>サムネイル: 写真に添えられた小さな画像です。</translation>
    </message>
    <message>
        <source>The camera&apos;s own preview; the raw data beside it aren&apos;t repaired.</source>
        <translation>カメラ自身のプレビューです。RAW データは修復されません。</translation>
    </message>
    <message>
        <source>It doesn&apos;t open as a picture.</source>
        <translation>画像として開けません。</translation>
    </message>
    <message>
        <source>Nothing needs to be done about it.</source>
        <translation>何もする必要はありません。</translation>
    </message>
    <message>
        <source>Next: save it. Nothing more needs to be done.</source>
        <translation>次の手順: 保存してください。ほかにすることはありません。</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it.</source>
        <translation>次の手順: 保存する前に画像を確かめてください。</translation>
    </message>
    <message>
        <source>Next: look at the picture before you save it; no way is left to find more of it.</source>
        <translation>次の手順: 保存する前に画像を確かめてください。これ以上取り戻す方法はありません。</translation>
    </message>
    <message>
        <source>How much of the picture is there isn&apos;t known.</source>
        <translation>画像がどれだけあるかは分かりません。</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>元のファイル: %1</translation>
    </message>
    <message>
        <source>Next: press &quot;%1&quot; and give a healthy photo from the same camera.</source>
        <translation>次の手順: ［%1］を押し、同じカメラの無事な写真を指定してください。</translation>
    </message>
    <message>
        <source>The picture itself didn&apos;t come out; what did are smaller ones that were inside the file.</source>
        <translation>写真そのものは取り出せませんでした。得られたのは、ファイルの中にあった小さな画像です。</translation>
    </message>
    <message>
        <source>Try another sample</source>
        <translation>別のサンプルで試す</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>サンプルで試す</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Invalid File</source>
        <translation>無効なファイル</translation>
    </message>
    <message>
        <source>Important marker missing. File can&apos;t repaire.</source>
        <translation>重要なマーカーがありません。ファイルを修復できません。</translation>
    </message>
    <message>
        <source>No Thumbnail found</source>
        <translation>サムネイルが見つかりません</translation>
    </message>
    <message>
        <source>Marker missing. Failed to extract thumbnail</source>
        <translation>マーカーがありません。サムネイルを抽出できませんでした</translation>
    </message>
    <message>
        <source>(Thumbnail Corrupt)</source>
        <translation>(サムネイル破損)</translation>
    </message>
    <message>
        <source>(Thumbnail Absent)</source>
        <translation>(サムネイルなし)</translation>
    </message>
    <message>
        <source>(Invalid File)</source>
        <translation>(無効なファイル)</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>%1: skipped</source>
        <translation>%1: スキップしました</translation>
    </message>
    <message>
        <source>%1: skipped, the same file is there already</source>
        <translation>%1: スキップしました。同じファイルがすでにあります</translation>
    </message>
    <message>
        <source>%1 of %2 files were saved.</source>
        <translation>%2 個のファイルのうち %1 個を保存しました。</translation>
    </message>
    <message>
        <source>Saved with the camera&apos;s data (date, place, orientation, colours): %1</source>
        <translation>カメラの情報 (日付、場所、向き、色) とともに保存したもの: %1</translation>
    </message>
    <message>
        <source>No camera data (date, place, orientation, colours) were found to put back.</source>
        <translation>戻せるカメラの情報 (日付、場所、向き、色) は見つかりませんでした。</translation>
    </message>
    <message>
        <source>The saved photos lack the camera&apos;s data (date, place, orientation, colours).</source>
        <translation>保存した写真にはカメラの情報 (日付、場所、向き、色) がありません。</translation>
    </message>
    <message>
        <source>%1 To save them with these, choose &quot;Put the camera&apos;s data back&quot; in the File menu first.</source>
        <translation>%1 含めて保存するには、先に［ファイル］メニューで［カメラの情報を戻す］を選んでください。</translation>
    </message>
    <message>
        <source>%1 was saved as %2, for one of the photos to repair has that name there.</source>
        <translation>%1 は %2 として保存しました。修復する写真の一つが、そこで同じ名前を使っているためです。</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>&apos;%1&apos; can&apos;t be a file&apos;s name</source>
        <translation>「%1」はファイル名にできません</translation>
    </message>
    <message>
        <source>the question about it was closed without an answer</source>
        <translation>確認の質問が回答なしで閉じられました</translation>
    </message>
    <message>
        <source>the repaired file is gone from the working folder</source>
        <translation>修復したファイルが作業フォルダーからなくなりました</translation>
    </message>
    <message>
        <source>a file has its name</source>
        <translation>同じ名前のファイルがあります</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>フォルダー「%1」を作成できません: %2</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; is not a folder</source>
        <translation>保存先「%1」はフォルダーではありません</translation>
    </message>
    <message>
        <source>the destination &apos;%1&apos; lies inside the program&apos;s working folder</source>
        <translation>保存先「%1」はプログラムの作業フォルダーの中にあります</translation>
    </message>
    <message>
        <source>the save was called off before it</source>
        <translation>その前に保存が取りやめられました</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>ディスクがいっぱいです</translation>
    </message>
    <message>
        <source>your share of the disk (quota) is used up</source>
        <translation>割り当てられたディスク容量 (クォータ) を使い切りました</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>ディスクは読み取り専用です</translation>
    </message>
    <message>
        <source>you have no right to write there</source>
        <translation>そこに書き込む権限がありません</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>フォルダーがなくなりました</translation>
    </message>
    <message>
        <source>a file with this name is there already</source>
        <translation>この名前のファイルがすでにあります</translation>
    </message>
    <message>
        <source>the file is larger than may be written there</source>
        <translation>ファイルがそこに書き込める大きさを超えています</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>名前が長すぎます</translation>
    </message>
    <message>
        <source>the disk failed or was removed</source>
        <translation>ディスクに障害があるか、取り外されました</translation>
    </message>
    <message>
        <source>the repaired file is empty</source>
        <translation>修復したファイルが空です</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlg</name>
    <message>
        <source>Not everything was saved</source>
        <translation>一部は保存されませんでした</translation>
    </message>
</context>
<context>
    <name>SavingFinishDlgObj</name>
    <message>
        <source>Saving Complete</source>
        <translation>保存完了</translation>
    </message>
    <message>
        <source>Image(s) saved successfully.</source>
        <translation>画像を保存しました。</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>ここをクリック</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>What was not saved</source>
        <translation>保存されなかったもの</translation>
    </message>
    <message>
        <source>Saved in:</source>
        <translation>保存先:</translation>
    </message>
</context>
<context>
    <name>SecondTry</name>
    <message>
        <source>Try deep salvage for 1 file</source>
        <translation>1 個のファイルでディープサルベージを試す</translation>
    </message>
    <message numerus="yes">
        <source>Try deep salvage for %n files</source>
        <translation>
            <numerusform>%n 個のファイルでディープサルベージを試す</numerusform>
        </translation>
    </message>
    <message>
        <source>Searches the files that are broken or there in part more thoroughly. What came out stays.</source>
        <translation>修復できなかったファイルや一部だけのファイルを、さらに詳しく調べます。これまでの結果はそのまま残ります。</translation>
    </message>
    <message>
        <source>Try deep salvage</source>
        <translation>ディープサルベージを試す</translation>
    </message>
</context>
<context>
    <name>SingleInstance</name>
    <message>
        <source>The working folder &quot;%1&quot; can&apos;t be locked.</source>
        <translation>作業フォルダー「%1」をロックできません。</translation>
    </message>
    <message>
        <source>The program is running already, and these are too many files to hand over to it at once.</source>
        <translation>プログラムは既に実行中です。一度に渡すにはファイルが多すぎます。</translation>
    </message>
    <message>
        <source>The program is running already but is busy; it hasn&apos;t answered yet.</source>
        <translation>プログラムは既に実行中ですが、処理中のため応答がありません。</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by another program.</source>
        <translation>作業フォルダー「%1」は別のプログラムが使用中です。</translation>
    </message>
    <message>
        <source>The working folder &quot;%1&quot; is in use by %2 (process %3 on %4).</source>
        <translation>作業フォルダー「%1」は %2 が使用中です（%4 のプロセス %3）。</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>The program is damaged. Please install it again. (%1)</source>
        <translation>プログラムが壊れています。インストールし直してください。(%1)</translation>
    </message>
    <message>
        <source>The program that was closed is still wiping its working files. This one starts after that.</source>
        <translation>終了したプログラムがまだ作業ファイルを消去しています。終わりしだい起動します。</translation>
    </message>
</context>
<context>
    <name>StopDlgObj</name>
    <message>
        <source>Stop Repair</source>
        <translation>修復の停止</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>現在の処理を停止しますか？</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>この時点から処理を再開することはできません。変更はすべて破棄されます。 </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>UpdateOffer</name>
    <message>
        <source>What&apos;s New</source>
        <translation>新機能</translation>
    </message>
    <message>
        <source>Visit Page</source>
        <translation>ページを開く</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>New version details: 
</source>
        <translation>新しいバージョンの詳細: 
</translation>
    </message>
    <message>
        <source>Update: Kesmira </source>
        <translation>アップデート: Kesmira </translation>
    </message>
    <message>
        <source>Major Update</source>
        <translation>メジャーアップデート</translation>
    </message>
    <message>
        <source>Minor Update</source>
        <translation>マイナーアップデート</translation>
    </message>
</context>
<context>
    <name>WorkingRoot</name>
    <message>
        <source>the working folder &apos;%1&apos; belongs to another user</source>
        <translation>作業フォルダー「%1」は別のユーザーのものです</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be written by others</source>
        <translation>作業フォルダー「%1」に他のユーザーが書き込めます</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can be entered by others; its mode must be 0700</source>
        <translation>作業フォルダー「%1」に他のユーザーが入れます。権限は 0700 でなければなりません</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be made: %2</source>
        <translation>作業フォルダー「%1」を作成できません: %2</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is a symbolic link</source>
        <translation>作業フォルダー「%1」はシンボリックリンクです</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; is not a folder</source>
        <translation>作業フォルダー「%1」はフォルダーではありません</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be opened</source>
        <translation>作業フォルダー「%1」を開けません</translation>
    </message>
    <message>
        <source>the working folder &apos;%1&apos; can&apos;t be used: %2</source>
        <translation>作業フォルダー「%1」を使用できません: %2</translation>
    </message>
</context>
</TS>
