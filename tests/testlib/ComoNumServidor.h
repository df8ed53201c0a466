// The program over a file, told that its data lie on a server: for what hangs on that alone. The connection
// is open by then, and stays the file's. Where they do lie on one, nothing has to be told.
#pragma once

#include "testlib/Sistema.h"

inline void Como_Num_Servidor(Sistema &s)
{
    s.geral.de.Abrir("cmdVerConfig").Close();
    if (Sistema::Num_Servidor()) return;
    s.geral.CaminhoBD = QStringLiteral("postgresql://morvex@servidor/morvex");
}
