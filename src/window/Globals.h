// The dialogs that are built once with the main window and reached from everywhere.
#pragma once

class CloseApplicationDlg;
class CompletionMsg;
class StopDlg;

extern CloseApplicationDlg *closeApp;
extern StopDlg *stopDlgObj;
extern CompletionMsg *CompletionMsgObj;
