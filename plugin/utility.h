// The object that the host creates from this library and keeps while it runs.
#pragma once

#include "max.h"
// the host's own header comes first
#include "gup.h"

class Orv_Rendering : public GUP {
public:
    ~Orv_Rendering() override;

    // Puts commands and menu into the host and opens the door to it; asks to be kept.
    DWORD Start() override;
    // Takes the menu out again. The host keeps the action table.
    void Stop() override;

    // Nothing of ours is in a scene, and no other plug-in talks to us.
    DWORD_PTR Control(DWORD parameter) override;
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;

    void DeleteThis() override;
};
