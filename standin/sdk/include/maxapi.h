// The host application.
#pragma once

#include "GetCOREInterface.h"
#include "MaxDirectories.h"
#include "actiontable.h"
#include "reserved_slots.h"

class IMenuManager;

class Interface : public FPStaticInterface {
public:
    RESERVED_SLOT(28)
    RESERVED_SLOT(29)
    RESERVED_SLOTS_5_LOW(3)
    virtual HWND GetMAXHWnd() const = 0; // 35
    RESERVED_SLOT(36)
    RESERVED_SLOT(37)
    RESERVED_SLOT(38)
    RESERVED_SLOT(39)
    RESERVED_SLOTS_10(4)
    RESERVED_SLOTS_10(5)
    RESERVED_SLOTS_10(6)
    RESERVED_SLOTS_10(7)
    RESERVED_SLOTS_10(8)
    RESERVED_SLOTS_10(9)
    RESERVED_SLOTS_10(10)
    RESERVED_SLOTS_10(11)
    RESERVED_SLOTS_10(12)
    RESERVED_SLOTS_10(13)
    RESERVED_SLOTS_10(14)
    RESERVED_SLOTS_10(15)
    RESERVED_SLOTS_5_LOW(16)
    RESERVED_SLOT(165)
    virtual void RegisterDlgWnd(HWND hDlg) = 0;  // 166
    virtual int UnRegisterDlgWnd(HWND hDlg) = 0; // 167
    RESERVED_SLOT(168)
    RESERVED_SLOT(169)
    virtual IActionManager* GetActionManager() = 0; // 170
    virtual IMenuManager* GetMenuManager() = 0;     // 171
    RESERVED_SLOT(172)
    RESERVED_SLOT(173)
    RESERVED_SLOT(174)
    RESERVED_SLOTS_5_HIGH(17)
    RESERVED_SLOTS_10(18)
    RESERVED_SLOTS_10(19)
    RESERVED_SLOTS_10(20)
    RESERVED_SLOTS_10(21)
    virtual const MCHAR* GetDir(int which) = 0; // 220
    RESERVED_SLOT(221)
    RESERVED_SLOT(222)
    RESERVED_SLOT(223)
    RESERVED_SLOT(224)
    RESERVED_SLOTS_5_HIGH(22)
    RESERVED_SLOTS_10(23)
    virtual MSTR& GetCurFileName() = 0; // 240, without the folder
    virtual MSTR& GetCurFilePath() = 0; // 241, folder and name
    RESERVED_SLOT(242)
    RESERVED_SLOT(243)
    virtual BOOL FileSave() = 0; // 244
    RESERVED_SLOTS_5_HIGH(24)
    RESERVED_SLOTS_5_LOW(25)
    RESERVED_SLOT(255)
    RESERVED_SLOT(256)
    virtual int SaveToFile(const MCHAR* fname, BOOL clearNeedSaveFlag = TRUE,
                           BOOL useNewFile = TRUE) = 0; // 257
};
