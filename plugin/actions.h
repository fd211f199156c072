// The two commands of the product, as the host's menus, tool bars and keys see them.
#pragma once

#include "max.h"

class Orv_ActionTable : public ActionTable {
public:
    // `name` is copied; the labels are read from the language resources of `module`.
    Orv_ActionTable(MSTR& name, HINSTANCE module);

    // The label of a command of ours; the base's answer for every other one.
    BOOL GetMenuText(int id, MSTR& text) override;
};

class Orv_ActionCallback : public ActionCallback {
public:
    // Carries a command out; TRUE for unknown ones too. Returns when the dialog or box is closed.
    BOOL ExecuteAction(int id) override;
};

// Gives the table to the host and activates it. Does nothing when the host cannot be reached.
void RegisterActions(HINSTANCE module);

// Puts a new callback in force. Nothing when the host cannot be reached or does not know the table.
void ActivateActions();

// The table as the host knows it, null when it does not.
ActionTable* FindActionTable();
