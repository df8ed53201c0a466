#include "sincronizacao/PalavrasDaSincronizacao.h"

#include "cards/LinhasDoContacto.h"
#include "data/Geral.h"

using namespace Qt::StringLiterals;

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;

qint16 Texto_Do_Erro(RemoteError::Kind especie)
{
    using Kind = RemoteError::Kind;
    switch (especie) {
    case Kind::Address:
        return 531;
    case Kind::NoNetwork:
        return 532;
    case Kind::NoSuchHost:
        return 533;
    case Kind::Refused:
        return 534;
    case Kind::Interrupted:
        return 535;
    case Kind::TimedOut:
        return 536;
    case Kind::Certificate:
        return 537;
    case Kind::Unencrypted:
        return 538;
    case Kind::Elsewhere:
    case Kind::NotFound:
        return 542;
    case Kind::Password:
        return 540;
    case Kind::Forbidden:
        return 541;
    case Kind::NoBook:
        return 543;
    case Kind::NoRoom:
        return 544;
    case Kind::TooBig:
    case Kind::Malformed:
        return 545;
    case Kind::NotAccepted:
        return 557;
    case Kind::None:
    case Kind::Changed:
    case Kind::Server:
        break;
    }
    return 546;
}

QString Contagens(Geral &geral, const ResultadoDaSincronizacao &r)
{
    if (!r.Mudou_Aqui() && !r.Mudou_La())
        return r.retidos + r.recusados > 0 ? QString() : geral.Ler_Idioma(521);
    return geral.Ler_Idioma(520)
        .arg(r.adicionados)
        .arg(r.alterados)
        .arg(r.eliminados)
        .arg(r.adicionados_la)
        .arg(r.alterados_la)
        .arg(r.eliminados_la);
}

// Which number of the person's it is, is told by the kind alone.
QString Rotulo_Do_Campo(Geral &geral, const QString &campo)
{
    for (const Linha linha : linhas_do_contacto::todas)
        for (const Coluna coluna : linhas_do_contacto::Colunas(linha))
            if (campo == QLatin1StringView(ColunasDoContacto::na_tabela.at(static_cast<std::size_t>(coluna))))
                return linhas_do_contacto::Rotulo(linha, geral);
    return campo;
}

qint16 Texto_Da_Ocorrencia(Ocorrencia::Que que)
{
    switch (que) {
    case Ocorrencia::Conflito:
        return 553;
    case Ocorrencia::EliminadoLa:
        return 554;
    case Ocorrencia::EliminadoAqui:
        return 555;
    case Ocorrencia::SemDireito:
        return 556;
    case Ocorrencia::Recusado:
        return 557;
    case Ocorrencia::NaoCabe:
        return 558;
    case Ocorrencia::NaoRecebido:
        return 526;
    case Ocorrencia::Ilegivel:
        break;
    }
    return 559;
}
} // namespace

QString palavras_da_sincronizacao::Do_Erro(Geral &geral, const RemoteError &erro)
{
    return geral.Ler_Idioma(Texto_Do_Erro(erro.kind));
}

QString palavras_da_sincronizacao::Do_Resultado(Geral &geral, const ResultadoDaSincronizacao &r)
{
    QStringList linhas;
    switch (r.fim) {
    case Fim::Feita:
        break;
    case Fim::Cancelada:
        linhas << geral.Ler_Idioma(527);
        break;
    case Fim::Noutro:
        linhas << geral.Ler_Idioma(560);
        break;
    case Fim::OutraEscolha:
        linhas << geral.Ler_Idioma(561);
        break;
    case Fim::Erro:
        linhas << Do_Erro(geral, r.erro);
        break;
    case Fim::Perguntar:
        linhas << geral.Ler_Idioma(552);
        break;
    case Fim::SemGrupo:
        linhas << geral.Ler_Idioma(547);
        break;
    case Fim::Base:
        linhas << geral.Ler_Idioma(548);
        break;
    }
    if (r.fim == Fim::Feita || r.Mudou_Aqui() || r.Mudou_La()) linhas << Contagens(geral, r);
    for (const auto &[texto, quantos] :
         {std::pair<qint16, int>{522, r.conflitos}, {523, r.retidos}, {524, r.recusados}})
        if (quantos > 0) linhas << geral.Ler_Idioma(texto).arg(quantos);
    linhas.removeAll(QString());
    return linhas.join(u' ');
}

QString palavras_da_sincronizacao::Da_Ocorrencia(Geral &geral, const Ocorrencia &ocorrencia)
{
    QString texto = geral.Ler_Idioma(Texto_Da_Ocorrencia(ocorrencia.que));
    if (ocorrencia.que != Ocorrencia::Conflito) return texto;
    return texto.arg(Rotulo_Do_Campo(geral, ocorrencia.Campo), ocorrencia.La, ocorrencia.Aqui);
}
