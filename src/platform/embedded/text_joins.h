// Joins over texts that are equal by the client's collation without being the same.
#pragma once

struct sqlite3;

namespace tela::embedded {

/// To be called when a connection knows the collation TELA. SQLite looks a row of a join up in an
/// index that it makes for the statement, and before that in a Bloom filter, which up to version
/// 3.40 hashes a text by its length (https://sqlite.org/optoverview.html#hash_joins): rows whose
/// texts are equal under a collation are then lost. Switches the filters off; where this SQLite
/// does not have the switch, and loses rows, no index is made for a statement. Throws
/// DatabaseError.
void hash_no_texts(sqlite3* database);

}  // namespace tela::embedded
