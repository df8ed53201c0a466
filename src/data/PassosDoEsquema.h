// What a database of an older program lacks, brought to it when it is opened: numbered steps that only ever
// add, so that the older program goes on working with the same file. How many a file has had stands in it.
#pragma once

class Connection;

namespace esquema
{
// Of the newest step; a database that the build makes has had all of them. The fourth is a server's: its keys of
// writes know their rows.
inline constexpr int versao = 4;

// Whether the file has had every step.
bool Em_Dia(Connection &ligacao);

// Takes the steps that are missing, all or none; another program's database gets none. Raises Failure where
// the file takes no writing, and for one of a newer program (Failure::Kind::DatabaseNewer). A server's take
// none from here: an older one raises Failure too (Failure::Kind::DatabaseOlder).
void Por_Em_Dia(Connection &ligacao);
} // namespace esquema
