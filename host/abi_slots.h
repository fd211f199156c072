// What the host's headers in use declare and no compiler asserts (host/abi_facts.h): where calls
// arrive, and ids that a constructor makes. For tests; nothing of it is in the plug-in. Plain C,
// for either object layout.
#pragma once

extern "C" {

// The entry of a virtual table that a call of this function reaches, as the host's headers in use
// declare it. `row` counts the rows of ORV_HOST_SLOTS from 0 and then those of
// ORV_HOST_PROTECTED_SLOTS; -1 for every other row. One thread at a time.
int orv_host_slot_reached(int row);

// Where the IMenuElement of a menu and of a menu item begins, in bytes from the start of the
// object.
int orv_host_menu_element_offset(void);
int orv_host_menu_item_element_offset(void);

// The two parts of an interface's id. `row` counts the rows of ORV_HOST_INTERFACE_IDS from 0.
// Answers 0, and leaves the parts as they are, for every other row.
int orv_host_interface_id(int row, unsigned* a, unsigned* b);
}
