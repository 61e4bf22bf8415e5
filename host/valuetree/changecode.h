#pragma once

/// What a notification is about. The numbers are fixed: hosts rely on them.
enum TChangeCode {
    ekChangeState = 2, ///< The state; if GetState() then gives ekStateDeleted, the node is going away.
    ekChangeValue = 3, ///< The value.
    ekChangeLimits = 4, ///< Minimum, maximum or step of a numeric node.
    ekChangeItemSet = 5, ///< One item of a range map was stored.
    ekChangeItems = 6, ///< The items of a selection, or the context in which texts are translated.
    ekChangeContent = 7, ///< The whole content of a range map; the usual code at the end of a transaction.
    ekChangeItemErased = 8, ///< One item of a range map was removed.
};
