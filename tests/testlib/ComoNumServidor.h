// The program over a file, told that its data lie on a server: for what hangs on that alone. The connection
// is open by then, and stays the file's.
#pragma once

#include "testlib/Sistema.h"

inline void Como_Num_Servidor(Sistema &s)
{
    s.geral.de.Abrir("cmdVerConfig").Close();
    s.geral.CaminhoBD = QStringLiteral("postgresql://morvex@servidor/morvex");
}
