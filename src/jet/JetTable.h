// One table of a Jet 4 file: its definition, and its rows turned into cells.
#pragma once

#include "jet/JetFile.h"

void readJetTable(const JetPages &pages, quint32 definitionPage, JetFile::Sink &sink);
JetFile::Table readJetTable(const JetPages &pages, quint32 definitionPage);
