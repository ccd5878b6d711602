#pragma once
// The grids of frmkerala: for each, the node or toolbar key that opens it, the settings it is handed, its
// query and its answers. One row per grid reference of the window; the order is the window's own.
#include <QString>
#include <cstdint>

#include "library/frm_kerala.h"

namespace library {

struct GridEntry {
    frmGlobalSections* frmkerala::*reference;
    const char* name;                    // the reference's name
    const char* openedFrom;              // the tree's name, or "Toolbar2"
    const char* key;                     // the node's or the button's key
    const char* header;
    std::int16_t autoSizeColumnIndex, searchColumnIndex, detailIndex;
    std::int32_t hiddenIDIndex;          // -1: not set, the grid keeps its own
    int libraryFile;                     // 1 or 3: the connection and its string
    const char* oleTableName;
    const char* predicateColumnName;
    std::int16_t predicateValueColumnIndex;
    const char* additionalSearchConditions;
    bool recordSetByTable;               // getRecordSet on table "Kerala" rather than on the connection
    bool dontShowOleForm;                // the grid raises GoClicked instead of showing the document itself
    const char* query;                   // nullptr: built by its opener (the allied forms)
    void (frmkerala::*go)(frmGlobalSections*, basic::Variant&);   // nullptr: no handler
    void (frmkerala::*back)(frmGlobalSections*);                   // nullptr: no handler
};

extern const GridEntry kGridCatalogue[26];

// The row opened by this key from this tree (or "Toolbar2"); nullptr when there is none.
const GridEntry* findGridEntry(const QString& openedFrom, const QString& key);

// The query of the allied forms grid, its name list built in three statements.
QString AlliedFormsQuery();

}  // namespace library
