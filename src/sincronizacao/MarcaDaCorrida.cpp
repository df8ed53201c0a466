#include "sincronizacao/MarcaDaCorrida.h"

#include "data/Geral.h"

using namespace Qt::StringLiterals;

namespace
{
const auto seccao = u"sincronizacao"_s;
const auto chave = u"corrida"_s;
} // namespace

int MarcaDaCorrida::Ler() { return geral_.ini.Ler_Ini(geral_.Seccao_Do_Utilizador(seccao), chave).toInt(); }

void MarcaDaCorrida::Escrever(int corrida)
{
    geral_.ini.Escrever_Ini(geral_.Seccao_Do_Utilizador(seccao), chave, QString::number(corrida));
}
