#include "sincronizacao/Sincronizador.h"

#include "carddav/AddressBook.h"
#include "controls/DisabledWindow.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "sincronizacao/frmPopupSincronizacao.h"
#include "sincronizacao/frmSincronizar.h"
#include "sincronizacao/PalavraPasseDoServidor.h"
#include "sincronizacao/PalavrasDaSincronizacao.h"

#include <QAction>
#include <utility>

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;
constexpr int um_minuto = 60'000; // milliseconds
} // namespace

ServidoresDeLivros Servidores_Da_Rede()
{
    return {[](const QUrl &livro, const RemoteAccount &conta) {
                return std::unique_ptr<RemoteBook>(std::make_unique<AddressBook>(livro, conta));
            },
            [](const QString &endereco, const RemoteAccount &conta, const Discovery::Answer &resposta) {
                auto procura = std::make_shared<Discovery>(endereco, conta);
                procura->start(resposta);
                return std::shared_ptr<void>(procura);
            }};
}

Sincronizador::Sincronizador(Janela &janela, Geral &geral, Platform &platform, ServidoresDeLivros servidores)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      servidores_(std::move(servidores))
{
    connect(janela.Sincronizar, &QAction::triggered, this, &Sincronizador::Abrir);
    connect(&relogio_, &QTimer::timeout, this, &Sincronizador::Relogio);
    connect(&geral_.temporizadores, &Temporizadores::Retomados, this, [this] {
        if (std::exchange(a_espera_, false)) QTimer::singleShot(0, this, &Sincronizador::Relogio);
    });
}

Sincronizador::~Sincronizador() { delete popup_; }

// A database that can't be read has been told of by others.
std::optional<ContaSincronizada> Sincronizador::Conta()
{
    std::optional<ContaSincronizada> conta;
    skipFailure([&] { conta = MemoriaDaSincronizacao(geral_.de, geral_.SessaoActual.IdUtilizador).Conta(); });
    return conta;
}

void Sincronizador::Iniciar()
{
    Retomar_Relogio();
    const auto conta = Conta();
    if (conta && conta->Ligada && conta->AoArrancar) QTimer::singleShot(0, this, &Sincronizador::Relogio);
}

void Sincronizador::Retomar_Relogio()
{
    relogio_.stop();
    const auto conta = Conta();
    if (conta && conta->Ligada && conta->Minutos > 0) relogio_.start(conta->Minutos * um_minuto);
}

void Sincronizador::Relogio()
{
    if (geral_.temporizadores.Parados()) {
        a_espera_ = true;
        return;
    }
    Comecar(Sincronizacao::Modo::Normal, true);
}

bool Sincronizador::Comecar(Sincronizacao::Modo modo, bool por_si)
{
    if (corrida_) return false;
    const auto conta = Conta();
    if (!conta || conta->Livro.isEmpty() || conta->IDGrupo == 0) return false;
    const auto senha = PalavraPasseDoServidor(geral_, platform_.secrets).Ler(*conta);
    if (!senha) return false;
    por_si_ = por_si;
    corrida_ = std::make_unique<Sincronizacao>(
        geral_, platform_.clock, servidores_.abrir(QUrl(conta->Livro), {conta->Nome, *senha}), modo);
    connect(corrida_.get(), &Sincronizacao::Progresso, this, &Sincronizador::Progresso);
    connect(corrida_.get(), &Sincronizacao::Terminada, this, &Sincronizador::Terminada);
    corrida_->Comecar();
    return true;
}

void Sincronizador::Cancelar()
{
    if (corrida_) corrida_->Cancelar();
}

void Sincronizador::Terminada(const ResultadoDaSincronizacao &resultado)
{
    corrida_.release()->deleteLater();
    if (resultado.Mudou_Aqui()) Q_EMIT ContactosMudados();
    if (resultado.fim == Fim::Feita) falha_dita_ = false;
    const bool falhou = resultado.fim != Fim::Feita && resultado.fim != Fim::Cancelada &&
                        !resultado.Cedeu(); // which is told where it runs
    if (falhou && por_si_ && !std::exchange(falha_dita_, true)) Dizer_Falha(resultado);
    Q_EMIT Acabou(resultado);
}

void Sincronizador::Dizer_Falha(const ResultadoDaSincronizacao &resultado)
{
    const QString texto =
        resultado.fim == Fim::Perguntar
            ? geral_.Ler_Idioma(552)
            : geral_.Ler_Idioma(551) + u'\n' + palavras_da_sincronizacao::Do_Resultado(geral_, resultado);
    delete popup_;
    popup_ = new frmPopupSincronizacao(janela_, texto);
    connect(popup_, &RisingCard::Click, this, [this] {
        popup_->close();
        Q_EMIT Abrir_Sincronizar();
    });
    popup_->show();
    popup_->announce(texto);
}

void Sincronizador::Esquecer_Palavra_Passe()
{
    PalavraPasseDoServidor(geral_, platform_.secrets).Esquecer(geral_.SessaoActual.IdUtilizador);
}

bool Sincronizador::Responder() { return popup_ && popup_->answer(); }

void Sincronizador::Abrir()
{
    const DisabledWindow desactivada(janela_);
    frmSincronizar(geral_, platform_, *this, &janela_).exec();
}
