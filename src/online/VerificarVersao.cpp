#include "online/VerificarVersao.h"

#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace
{
const auto objecto = u"/versao.ini"_s;

QString Em_Texto(QDate data) { return data.toString(u"dd-MM-yyyy"_s); }
} // namespace

VerificarVersao::VerificarVersao(Janela &janela, Geral &geral, Platform &platform, QString servidor,
                                 quint16 porto)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      servidor_(std::move(servidor)),
      porto_(porto)
{
    connect(&geral_.temporizadores.TimerDownload, &QTimer::timeout, this,
            &VerificarVersao::TimerDownload_Timer);
    connect(&pedido_, &HttpGet::answered, this, [this] { Escrever_Linha(u"Request successfull"_s); });
    connect(&pedido_, &HttpGet::finished, this, &VerificarVersao::Descarregado);
}

// The tick only begins; the rest of its work follows when the file has come. A tick that finds a fetch under
// way leaves it alone.
void VerificarVersao::TimerDownload_Timer()
{
    if (pedido_.isRunning() || perguntando_) return;
    const QDate ultima = QDate::fromString(geral_.ini.Ler_Ini(u"morvex"_s, u"data"_s), u"d-M-yyyy"_s);
    if (ultima == platform_.clock.today()) return;
    Escrever_Linha(u"Open Successfull"_s);
    Escrever_Linha(u"Connect Succesfull"_s);
    Escrever_Linha(u"Http Open Request succesfull"_s);
    pedido_.start(servidor_, porto_, objecto, QCoreApplication::applicationName());
}

void VerificarVersao::Escrever_Linha(const QString &linha) { janela_.txtMessages->appendPlainText(linha); }

void VerificarVersao::Descarregado(const QByteArray &conteudo)
{
    const QString caminho = geral_.Ficheiro(u"versao.ini"_s);
    QFile::remove(caminho);
    if (QFile ficheiro(caminho); ficheiro.open(QIODevice::WriteOnly)) ficheiro.write(conteudo);
    Escrever_Linha(u"Finished downloading "_s + servidor_ + objecto);

    const QString versao = IniFile(caminho).read(u"morvex"_s, u"versaoactual"_s);
    if (!versao.isEmpty()) Anunciar(versao);
}

// The version and the day are kept on No as well: a version is offered once.
void VerificarVersao::Anunciar(const QString &versao)
{
    const bool nova = versao != geral_.ini.Ler_Ini(u"morvex"_s, u"versaoactual"_s);
    skipFailure([&] {
        if (nova && Confirma(versao)) platform_.shell.open(Ligacao_De_Download());
    });
    geral_.ini.Escrever_Ini(u"morvex"_s, u"versaoactual"_s, versao);
    geral_.ini.Escrever_Ini(u"morvex"_s, u"data"_s, Em_Texto(platform_.clock.today()));
}

bool VerificarVersao::Confirma(const QString &versao)
{
    const QScopedValueRollback guarda(perguntando_, true);
    const QString pergunta = geral_.Ler_Idioma(223) + u' ' + versao + u"\r\n"_s + geral_.Ler_Idioma(224);
    return platform_.boxes.show(pergunta, box::exclamation | box::yesNo, janela_.windowTitle(), &janela_) ==
           answer::yes;
}

QString VerificarVersao::Ligacao_De_Download()
{
    Recordset &emails = geral_.de.Abrir("cmdTotalEmails");
    Recordset &memos = geral_.de.Abrir("cmdTotalMemos");
    const int contactos = janela_.ListaNomes->ListCount();
    QUrlQuery chaves;
    chaves.addQueryItem(u"idioma"_s, geral_.IdiomaActual);
    chaves.addQueryItem(u"3"_s, QString::number(contactos));
    chaves.addQueryItem(u"4"_s, emails.Fields("TotalEmails").text());
    chaves.addQueryItem(u"5"_s, memos.Fields("TotalMemos").text());
    chaves.addQueryItem(u"6"_s, geral_.VersaoBD);
    emails.Close();
    memos.Close();
    return u"http://%1/morvex/downloadredirect.php?%2"_s.arg(servidor_, chaves.toString(QUrl::FullyEncoded));
}
