#pragma once

/// What this Switch is among the others.
struct SwxPlace {
    bool master = false;
    bool controller = false;
    bool backup = false;

    static SwxPlace read();
};
