#pragma once

enum TValueState {
    ekStateUsable = 0,
    ekStateDeleted = 1, ///< The node is going away; observers let go of it.
    ekStateDisabled = 2, ///< The node stays and keeps its value, but is not to be used for now.
};
