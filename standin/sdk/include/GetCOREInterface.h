#pragma once

#include "CoreExport.h"
#include "interface_id.h"

class FPInterface;
class Interface;

CoreExport Interface* GetCOREInterface();
CoreExport FPInterface* GetCOREInterface(Interface_ID id);
