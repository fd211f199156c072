// Entries of the host's virtual tables that the plug-in does not use. Their number has to be right;
// a call through one of them is a mistake and ends the program at once.
#pragma once

#define RESERVED_SLOT(number)                                                                      \
    virtual void ReservedSlot##number() {                                                          \
        __builtin_trap();                                                                          \
    }

// RESERVED_SLOTS_10(4) stands for slots 40 to 49.
#define RESERVED_SLOTS_5_LOW(tens)                                                                 \
    RESERVED_SLOT(tens##0)                                                                         \
    RESERVED_SLOT(tens##1)                                                                         \
    RESERVED_SLOT(tens##2)                                                                         \
    RESERVED_SLOT(tens##3)                                                                         \
    RESERVED_SLOT(tens##4)
#define RESERVED_SLOTS_5_HIGH(tens)                                                                \
    RESERVED_SLOT(tens##5)                                                                         \
    RESERVED_SLOT(tens##6)                                                                         \
    RESERVED_SLOT(tens##7)                                                                         \
    RESERVED_SLOT(tens##8)                                                                         \
    RESERVED_SLOT(tens##9)
#define RESERVED_SLOTS_10(tens)                                                                    \
    RESERVED_SLOTS_5_LOW(tens)                                                                     \
    RESERVED_SLOTS_5_HIGH(tens)
