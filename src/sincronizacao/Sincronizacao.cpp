#include "sincronizacao/Sincronizacao.h"

#include "data/Geral.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "sincronizacao/MarcaDaCorrida.h"

#include <QTimer>

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;
constexpr qint64 fatia = 25; // ms that the program may be held up
} // namespace

Sincronizacao::Sincronizacao(Geral &geral, const Clock &relogio, std::unique_ptr<RemoteBook> livro, Modo modo,
                             QObject *dono)
    : QObject(dono), geral_(geral), relogio_(relogio), livro_(std::move(livro)), modo_(modo)
{
    connect(&geral_.temporizadores, &Temporizadores::Retomados, this, &Sincronizacao::Agendar);
}

Sincronizacao::~Sincronizacao() { livro_->cancel(); }

void Sincronizacao::Comecar()
{
    fase_ = Fase::Parada;
    Agendar();
}

void Sincronizacao::Cancelar()
{
    if (fase_ == Fase::Fim) return;
    livro_->cancel();
    Acabar(Fim::Cancelada);
}

void Sincronizacao::Agendar()
{
    if (agendado_ || fase_ == Fase::Fim || geral_.temporizadores.Parados()) return;
    agendado_ = true;
    QTimer::singleShot(0, this, &Sincronizacao::Passo);
}

void Sincronizacao::Passo()
{
    agendado_ = false;
    if (geral_.temporizadores.Parados()) return; // Retomados comes
    try {
        onFailure([this] { Passo_Da_Fase(); },
                  [this](const Failure &falha) {
                      livro_->cancel();
                      if (c_) c_->resultado.falha = falha.description();
                      Acabar(Fim::Base);
                  });
    } catch (const Ultrapassada &) {
        livro_->cancel();
        Acabar(Porque_Cede());
    }
}

Fim Sincronizacao::Porque_Cede()
{
    bool outra_escolha = false;
    skipFailure([&] {
        const auto agora = c_->memoria.Conta();
        outra_escolha = !agora || agora->Livro != conta_.Livro || agora->IDGrupo != conta_.IDGrupo;
    });
    return outra_escolha ? Fim::OutraEscolha : Fim::Noutro;
}

void Sincronizacao::Passo_Da_Fase()
{
    switch (fase_) {
    case Fase::Parada:
        return Abrir();
    case Fase::AEspera:
    case Fase::Fim:
        return;
    case Fase::OPlano:
        return Planear();
    case Fase::ASala:
        return Preparar_A_Recepcao();
    case Fase::ARecepcao:
        return Receber();
    case Fase::OsPares:
        return Arrumar_Os_Pares();
    case Fase::OsEnvios:
        return Preparar_A_Expedicao();
    case Fase::AExpedicao:
        return Expedir();
    }
}

// The count of the runs stands in the database and beside it. A database that knows of fewer than its
// surroundings is an old one that was put back: what it remembers is true, and not all that has happened.
void Sincronizacao::Abrir()
{
    bool ha_grupo = false;
    geral_.de.Tudo_Ou_Nada([&] { ha_grupo = Tomar_A_Corrida(); });
    if (!ha_grupo) return Acabar(Fim::SemGrupo);
    if (c_->posse > 0) MarcaDaCorrida(geral_).Escrever(c_->posse);
    fase_ = Fase::AEspera;
    Pedir_Mudancas();
}

// What others have written up to here this run knows, and what they would write afterwards they do not write
// any more. The marks of an old database go on only with what was then agreed, or an end in between would be
// taken for one that is up to date: until then its count is one of its own, below all marks.
bool Sincronizacao::Tomar_A_Corrida()
{
    MemoriaDaSincronizacao memoria(geral_.de, geral_.SessaoActual.IdUtilizador);
    conta_ = memoria.Conta().value_or(ContaSincronizada());
    c_ = std::make_unique<CorridaEmCurso>(geral_, relogio_, conta_.IDGrupo);
    if (!c_->grupo.Existe()) return false;
    estado_ = memoria.Estado();
    const int marca = MarcaDaCorrida(geral_).Ler();
    const int contada = estado_.Corrida;
    const bool antiga = marca > contada || contada < 0;
    estado_.Corrida = std::max(contada, marca) + 1;
    c_->circunstancias.cautela = c_->resultado.com_cautela = antiga || modo_ == Modo::SemApagar;
    c_->posse = antiga ? -std::abs(contada) - 1 : estado_.Corrida;
    memoria.Guardar_Corrida(c_->posse);
    return true;
}

void Sincronizacao::Pedir_Mudancas()
{
    Q_EMIT Progresso(0, 0);
    const QByteArray testemunho = c_->circunstancias.cautela ? QByteArray() : estado_.Testemunho;
    livro_->changesSince(testemunho, [this](const RemoteError &erro, const RemoteChanges &mudancas) {
        Mudancas(erro, mudancas);
    });
}

void Sincronizacao::Mudancas(const RemoteError &erro, const RemoteChanges &mudancas)
{
    if (erro) return Acabar_Com(erro);
    mudancas_ = mudancas;
    fase_ = Fase::OPlano;
    Agendar();
}

void Sincronizacao::Planear()
{
    plano_ = Planear_A_Recepcao(*c_, mudancas_);
    fase_ = Fase::ASala;
    Agendar();
}

void Sincronizacao::Preparar_A_Recepcao()
{
    recepcao_ = std::make_unique<RecepcaoDeCartoes>(*c_);
    Pedir_Cartoes();
}

void Sincronizacao::Pedir_Cartoes()
{
    fase_ = Fase::ARecepcao;
    tudo_chegou_ = plano_.a_pedir.isEmpty();
    if (tudo_chegou_) return Agendar();
    livro_->fetch(
        plano_.a_pedir,
        [this](const QList<RemoteCard> &cartoes) {
            chegados_.insert(chegados_.end(), cartoes.begin(), cartoes.end());
            Agendar();
        },
        [this](const RemoteError &erro) {
            tudo_chegou_ = true;
            erro_da_recepcao_ = erro;
            Agendar();
        });
}

void Sincronizacao::Receber()
{
    QElapsedTimer tempo;
    tempo.start();
    if (!chegados_.empty())
        c_->Escrever([&] {
            do {
                Receber_Um(chegados_.front());
                chegados_.pop_front();
            } while (!chegados_.empty() && tempo.elapsed() < fatia);
        });
    Q_EMIT Progresso(recebidos_, static_cast<int>(plano_.a_pedir.size()));
    if (!chegados_.empty()) return Agendar();
    if (!tudo_chegou_) return;
    if (erro_da_recepcao_) return Acabar_Com(erro_da_recepcao_);
    fase_ = Fase::OsPares;
    Agendar();
}

void Sincronizacao::Receber_Um(const RemoteCard &cartao)
{
    ++recebidos_;
    if (cartao.error) return Sem_Cartao(cartao);
    recepcao_->Tratar(cartao.href, cartao.etag, cartao.text);
}

// It was deleted in between, or the server does not hand it over: it is asked for at the next run.
void Sincronizacao::Sem_Cartao(const RemoteCard &cartao)
{
    const Par *par = c_->pares.De_Href(cartao.href);
    Par por_ver = par == nullptr ? Par{cartao.href, 0, {}, {}, {}, {}} : *par;
    if (cartao.error.kind == RemoteError::Kind::NotFound && por_ver.IDContacto == 0)
        return c_->pares.Eliminar(cartao.href);
    por_ver.estado = Par::PorVer;
    c_->pares.Guardar(por_ver);
    if (cartao.error.kind == RemoteError::Kind::NotFound) return;
    c_->Apontar({Ocorrencia::NaoRecebido, por_ver.IDContacto, cartao.href, {}, {}, {}, {}});
    ++c_->resultado.recusados;
}

// A card that was given another name has found its contact by now, so only what is really gone is counted.
qsizetype Sincronizacao::Quantos_A_Apagar_Aqui() const
{
    return std::count_if(plano_.a_apagar_aqui.cbegin(), plano_.a_apagar_aqui.cend(),
                         [this](const QString &href) { return c_->pares.De_Href(href) != nullptr; });
}

bool Sincronizacao::Ha_Que_Perguntar(bool la, qsizetype quantos)
{
    if (modo_ != Modo::Normal || c_->circunstancias.cautela) return false;
    if (!Sao_Demasiadas(quantos, plano_.acordados)) return false;
    c_->resultado.pergunta_la = la;
    c_->resultado.pergunta_quantos = static_cast<int>(quantos);
    c_->resultado.pergunta_de_quantos = plano_.acordados;
    Acabar(Fim::Perguntar);
    return true;
}

void Sincronizacao::Arrumar_Os_Pares()
{
    if (Ha_Que_Perguntar(false, Quantos_A_Apagar_Aqui())) return;
    c_->Escrever([this] {
        for (const QString &href : plano_.a_largar)
            Largar(href);
        for (const QString &href : plano_.a_reter)
            Reter(href, Par::Retido);
        for (const QString &href : plano_.apagados_retidos)
            Reter(href, Par::ApagadoRetido);
        for (const QString &href : plano_.a_apagar_aqui)
            Apagar_Aqui(href);
        // All that the server has told stands in the pairs now.
        if (!mudancas_.token.isEmpty() || !estado_.Testemunho.isEmpty()) {
            estado_.Testemunho = mudancas_.token;
            c_->memoria.Guardar_Resultado(estado_);
        }
        c_->memoria.Guardar_Corrida(estado_.Corrida);
    });
    c_->posse = estado_.Corrida;
    MarcaDaCorrida(geral_).Escrever(estado_.Corrida);
    fase_ = Fase::OsEnvios;
    Agendar();
}

void Sincronizacao::Preparar_A_Expedicao()
{
    expedicao_ = std::make_unique<ExpedicaoDeCartoes>(*c_, *livro_, *recepcao_, [this] { Agendar(); });
    if (Ha_Que_Perguntar(true, expedicao_->Preparar())) return;
    fase_ = Fase::AExpedicao;
    Agendar();
}

void Sincronizacao::Largar(const QString &href)
{
    const Par *par = c_->pares.De_Href(href);
    if (par == nullptr) return;
    if (plano_.ganham.contains(href))
        c_->Apontar({Ocorrencia::EliminadoLa, par->IDContacto, par->acordo[Coluna::Nome], {}, {}, {}, {}});
    c_->pares.Eliminar(href);
}

void Sincronizacao::Reter(const QString &href, Par::Estado estado)
{
    const Par *par = c_->pares.De_Href(href);
    if (par == nullptr) return;
    ++c_->resultado.retidos;
    if (par->estado == estado) return; // and was told
    Par retido = *par;
    retido.estado = estado;
    c_->pares.Guardar(retido);
    c_->Apontar({Ocorrencia::SemDireito, retido.IDContacto, retido.acordo[Coluna::Nome], {}, {}, {}, {}});
}

// Somebody may have changed it since it was looked at: then it stays, and goes to the server.
void Sincronizacao::Apagar_Aqui(const QString &href)
{
    const Par *par = c_->pares.De_Href(href);
    if (par == nullptr) return;
    const int ID = par->IDContacto;
    const auto linha = c_->grupo.Ler(ID);
    const bool mudou = linha && !Dizem_O_Mesmo(linha->colunas, par->acordo);
    if (linha && c_->grupo.E_Deste_Grupo(*linha) && !mudou) {
        c_->grupo.Eliminar(ID);
        ++c_->resultado.eliminados;
    }
    c_->pares.Eliminar(href);
}

void Sincronizacao::Expedir()
{
    const bool ha_mais = expedicao_->Passo();
    Q_EMIT Progresso(expedicao_->Feitos(), expedicao_->Todos());
    if (ha_mais) return;
    if (expedicao_->Erro()) return Acabar_Com(expedicao_->Erro());
    Acabar(Fim::Feita);
}

void Sincronizacao::Acabar_Com(const RemoteError &erro)
{
    c_->resultado.erro = erro;
    Acabar(Fim::Erro);
}

void Sincronizacao::Acabar(ResultadoDaSincronizacao::Fim fim)
{
    fase_ = Fase::Fim;
    ResultadoDaSincronizacao resultado = c_ ? c_->resultado : ResultadoDaSincronizacao();
    resultado.fim = fim;
    if (c_) c_->resultado.fim = fim;
    skipFailure([this] { Guardar_Fim(); });
    Q_EMIT Terminada(resultado);
}

void Sincronizacao::Guardar_Fim()
{
    if (!c_ || c_->resultado.Cedeu()) return; // what the other one comes to counts
    EstadoDaConta estado = c_->memoria.Estado();
    estado.UltimaVez = relogio_.now().toString(Qt::ISODate);
    estado.Resultado = c_->resultado.Texto();
    c_->memoria.Guardar_Resultado(estado);
}
