// Sets up, on a server, the database that several desks share: made, brought up to date, filled from a file,
// brought back into one, and looked over. It works with the rights of the database's owner, which no desk
// has.
#include "data/Sementes.h"
#include "ferramentas/LinhaDoServidor.h"
#include "platform/ErrorText.h"
#include "platform/Failure.h"
#include "servidor/BaseInicial.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/CopiaDoServidor.h"
#include "servidor/ExameDoServidor.h"
#include "servidor/MudancaParaServidor.h"
#include "store/postgres/ServerSession.h"

#include <cstdio>
#include <QCoreApplication>
#include <QTextStream>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace palavras;

namespace
{
enum Fim { Feito = 0, Falhou = 1, Nao_Se_Entende = 2, Sem_Servidor = 3, Com_Defeitos = 4 };
using Que = OrdemAoServidor::Que;

void Escrever(std::FILE *onde, const QString &texto)
{
    std::fputs((texto + u'\n').toLocal8Bit().constData(), onde);
}

void Escrever_Contagens(const QList<mudanca::Contagem> &contagens, Lingua lingua)
{
    for (const mudanca::Contagem &contagem : contagens)
        Escrever(stdout, Dizer(linhas, lingua).arg(contagem.tabela).arg(contagem.linhas));
}

Sementes Sementes_Em(const QString &idioma)
{
    if (idioma == "br"_L1) return sementes::BR();
    if (idioma == "en"_L1) return sementes::UK();
    return idioma == "fr"_L1 ? sementes::FR() : sementes::PT();
}

// Asks whoever sits there; a script is told that it has to say it.
QString Perguntar_Idioma(Lingua lingua)
{
    QTextStream entrada(stdin);
    for (;;) {
        if (::isatty(STDIN_FILENO) == 0) return {};
        std::fputs(Dizer(que_lingua, lingua).toLocal8Bit().constData(), stdout);
        std::fflush(stdout);
        QString resposta = entrada.readLine().trimmed().toLower();
        if (entrada.atEnd() || QStringList{u"pt"_s, u"br"_s, u"en"_s, u"fr"_s}.contains(resposta))
            return resposta;
    }
}

int Criar(OrdemAoServidor ordem, Lingua lingua)
{
    if (!ordem.vazia && ordem.idioma.isEmpty()) ordem.idioma = Perguntar_Idioma(lingua);
    if (!ordem.vazia && ordem.idioma.isEmpty()) {
        Escrever(stderr, Dizer(sem_lingua, lingua));
        return Nao_Se_Entende;
    }
    ServerSession servidor(ordem.morada);
    servidor.together([&] {
        base_inicial::Criar(servidor, ordem.posto, QStringLiteral(MORVEX_VERSION),
                            ordem.vazia ? std::nullopt : std::optional(Sementes_Em(ordem.idioma)));
    });
    servidor.run(u"VACUUM ANALYZE"_s);
    Escrever(stdout, Dizer(criada, lingua).arg(servidor.place()));
    return Feito;
}

int Atualizar(const OrdemAoServidor &ordem, Lingua lingua)
{
    ServerSession servidor(ordem.morada);
    base_no_servidor::Acerto acerto;
    servidor.together([&] { acerto = base_no_servidor::Por_Em_Dia(servidor, ordem.posto); });
    Escrever(stdout, Dizer(actualizada, lingua).arg(acerto.antes).arg(acerto.depois).arg(acerto.textos));
    if (acerto.ordem) Escrever(stdout, Dizer(ordem_refeita, lingua));
    return Feito;
}

int Mudar(const OrdemAoServidor &ordem, Lingua lingua)
{
    ServerSession servidor(ordem.morada);
    QList<mudanca::Contagem> contagens;
    servidor.together([&] { contagens = mudanca::Mudar(ordem.ficheiro, servidor, ordem.posto); });
    servidor.run(u"VACUUM ANALYZE"_s); // without it the lists are not read from their index
    Escrever_Contagens(contagens, lingua);
    Escrever(stdout, Dizer(mudado, lingua));
    return Feito;
}

int Trazer(const OrdemAoServidor &ordem, Lingua lingua)
{
    Escrever_Contagens(copia::Trazer(ordem.morada, ordem.ficheiro), lingua);
    Escrever(stdout, Dizer(trazido, lingua).arg(ordem.ficheiro));
    return Feito;
}

const Frase &Palavras_De(exame::Defeito defeito)
{
    using enum exame::Defeito;
    switch (defeito) {
    case Numero:
        return defeito_numero;
    case Tabela:
        return defeito_tabela;
    case Gatilho:
        return defeito_gatilho;
    case Contador:
        return defeito_contador;
    case Ordem:
        return defeito_ordem;
    case Letras:
        return defeito_letras;
    case Direitos:
        return defeito_direitos;
    case Textos:
        return defeito_textos;
    default:
        return defeito_codigo;
    }
}

int Verificar(const OrdemAoServidor &ordem, Lingua lingua)
{
    ServerSession servidor(ordem.morada);
    const QList<exame::Achado> achados = exame::Examinar(servidor, ordem.posto);
    for (const exame::Achado &achado : achados)
        Escrever(stdout, Dizer(Palavras_De(achado.defeito), lingua).arg(achado.onde));
    if (achados.isEmpty()) Escrever(stdout, Dizer(tudo_bem, lingua));
    return achados.isEmpty() ? Feito : Com_Defeitos;
}

int Cumprir(const OrdemAoServidor &ordem, Lingua lingua)
{
    switch (ordem.que) {
    case Que::Criar:
        return Criar(ordem, lingua);
    case Que::Atualizar:
        return Atualizar(ordem, lingua);
    case Que::Mudar:
        return Mudar(ordem, lingua);
    case Que::Trazer:
        return Trazer(ordem, lingua);
    case Que::Verificar:
        return Verificar(ordem, lingua);
    case Que::Ajuda:
        Escrever(stdout, Dizer(ajuda, lingua).trimmed());
        return Feito;
    case Que::Versao:
        Escrever(stdout, QStringLiteral("morvex-servidor " MORVEX_VERSION));
        return Feito;
    default:
        Escrever(stderr, ordem.recusa + u'\n' + Dizer(ver_ajuda, lingua));
        return Nao_Se_Entende;
    }
}

// Whether it failed before the server had let in.
bool Ficou_A_Porta(Failure::Kind especie)
{
    using enum Failure::Kind;
    for (const Failure::Kind uma :
         {AddressBroken, PasswordInAddress, ServerUnknown, ServerRefused, ServerCertificate, ServerForbidden,
          ServerPassword, ServerNoPassword, ServerPasswordFile, ServerNoDatabase, ServerLost,
          ServerLibraryMissing})
        if (uma == especie) return true;
    return false;
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Lingua lingua = Do_Ambiente();
    try {
        return Cumprir(Ler_Linha(QCoreApplication::arguments().mid(1), lingua), lingua);
    } catch (const Failure &falha) {
        const ErrorText texto = errorText(falha, Nome(lingua));
        Escrever(stderr, u"morvex-servidor: "_s + texto.words + u'\n' + texto.details);
        return Ficou_A_Porta(falha.kind()) ? Sem_Servidor : Falhou;
    } catch (const std::exception &falha) {
        std::fprintf(stderr, "morvex-servidor: %s\n", falha.what());
        return Falhou;
    }
}
