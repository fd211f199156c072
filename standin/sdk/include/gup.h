// Global utility plug-ins: created once by the host at its start and kept.
#pragma once

#include "baseinterface.h"
#include "gupapi.h"
#include "maxtypes.h"

class BitmapManager;
class DllDir;
class ILoad;
class ISave;
class ITreeEnumProc;
class Interface;

class GUP : public InterfaceServer {
public:
#define GUPRESULT_KEEP 0x00
#define GUPRESULT_NOKEEP 0x01
#define GUPRESULT_ABORT 0x03

    GUPExport GUP();
    GUPExport ~GUP() override;

    GUPExport virtual HINSTANCE MaxInst();
    GUPExport virtual HWND MaxWnd();
    GUPExport virtual DllDir* MaxDllDir();
    GUPExport virtual Interface* Max();
    GUPExport virtual BitmapManager* Bmi();
    GUPExport virtual int EnumTree(ITreeEnumProc* proc);
    GUPExport virtual bool ExecuteStringScript(const MCHAR* string);
    GUPExport virtual bool ExecuteFileScript(const MCHAR* file);

    GUPExport virtual DWORD Start() = 0;
    GUPExport virtual void Stop() = 0;
    GUPExport virtual DWORD_PTR Control(DWORD parameter);
    GUPExport virtual IOResult Save(ISave* isave);
    GUPExport virtual IOResult Load(ILoad* iload);
    GUPExport virtual void DeleteThis() = 0;
};
