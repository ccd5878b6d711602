#pragma once
// The desktop engine's operators and text functions as SQLite functions, registered on every handle.
// Names and rules: vorlan_plus (+), vorlan_join (&), vorlan_lcase, vorlan_ucase, vorlan_instr (2 or 3
// arguments, from 1, 0 when absent, without regard to case), vorlan_len, vorlan_left, vorlan_right,
// vorlan_mid. A Null argument gives Null, except to vorlan_join. The full-text pieces of full_text.h too.
struct sqlite3;

namespace store {

void registerSqlFunctions(sqlite3* db);

}  // namespace store
