// The numbers by which the host knows this plug-in.
#pragma once

#include "max.h"

// The utility's class.
const Class_ID kOrvClassID(0x2E87AC90, 0x85FBF488);

const ActionTableId kOrvActionTableID = 0x45AA4389;
const ActionContextId kOrvActionContextID = 0x21933FB3;
const MCHAR kOrvActionContextName[] = _M("Tallowmere");

// The two commands; the host's keyboard and menu files hold these numbers.
const int kActionOpenDialog = 1497;
const int kActionAbout = 1498;

// The menu-bar context of the product's menu, and the host's own main menu bar.
const int kOrvMenuContextID = 0x411A1C29;
const int kMainMenuBarContext = 1;

// The host has started and runs its message loop (NOTIFY_SYSTEM_STARTUP).
const int kNotifySystemStartup = 0x50;
