#include "sincronizacao/PalavraPasseDoServidor.h"

#include "data/Codificar_Email.h"
#include "data/Geral.h"
#include "platform/SecretStore.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"

using namespace Qt::StringLiterals;

// Two books of one person may have accounts of their own.
QString PalavraPasseDoServidor::Chave(const QString &IdUtilizador)
{
    return u"sincronizacao %1 %2"_s.arg(IdUtilizador, geral_.de.Ficheiro());
}

std::optional<QString> PalavraPasseDoServidor::Ler(const ContaSincronizada &conta)
{
    if (conta.PalavraPasse.isEmpty()) {
        if (auto guardada = segredos_.read(Chave(geral_.SessaoActual.IdUtilizador))) return guardada;
        return segredos_.isThere() ? std::nullopt : std::optional(QString()); // no row holds an empty one
    }
    const QByteArray digitos = Descodificar_Email(conta.PalavraPasse).toLatin1();
    return QString::fromUtf8(QByteArray::fromHex(digitos));
}

// The scrambling knows letters and digits alone, so it is given digits.
void PalavraPasseDoServidor::Guardar(ContaSincronizada &conta, const QString &senha)
{
    const QString chave = Chave(geral_.SessaoActual.IdUtilizador);
    conta.PalavraPasse.clear();
    if (conta.Endereco.isEmpty()) return segredos_.remove(chave);
    if (segredos_.isThere() && segredos_.write(chave, u"Morvex: "_s + conta.Endereco, senha)) return;
    QString saida;
    conta.PalavraPasse = Codificar_Email(QString::fromLatin1(senha.toUtf8().toHex()), saida);
}

void PalavraPasseDoServidor::Esquecer(const QString &IdUtilizador) { segredos_.remove(Chave(IdUtilizador)); }
