// The messages between the stand-in's spinner and edit window classes.
#pragma once

#include "base/windows.h"

// Sent to a spinner by its edit when the user has finished typing.
#define SPINNER_EDIT_CHANGED (WM_APP + 1)

// Property of an edit: the spinner that it is linked to.
#define LINKED_SPINNER_PROPERTY L"StandinLinkedSpinner"

void RegisterSpinnerClass(HINSTANCE module);
void RegisterEditClass(HINSTANCE module);
