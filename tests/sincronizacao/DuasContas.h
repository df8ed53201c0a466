// Two users whose accounts go with one and the same group, each with runs of his own: with one book on one
// server, or with a book each.
#pragma once

#include "sincronizacao/MesDeGente.h"

class DuasContas : public MesaDaSincronizacao
{
public:
    enum class Livros { Um, UmCada };
    enum Quem { Eva, Rui };

    explicit DuasContas(Livros livros) : livros_(livros)
    {
        s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=0 WHERE ID=%1"_s.arg(grupo)); // of all users
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        eva_ = s.geral.SessaoActual;
        s.Entrar(u"Rui"_s);
        rui_ = std::exchange(s.geral.SessaoActual, eva_);
        ContaSincronizada conta = *Memoria().Conta();
        if (livros == Livros::UmCada) conta.Livro = u"https://dav.example/outro/"_s;
        Memoria_De(Rui).Guardar(conta);
    }

    Sessao &Sessao_De(Quem quem) { return quem == Eva ? eva_ : rui_; }
    MemoriaDaSincronizacao Memoria_De(Quem quem) { return {s.geral.de, Sessao_De(quem).IdUtilizador}; }
    ServidorEmMemoria &Servidor_De(Quem quem)
    {
        return quem == Eva || livros_ == Livros::Um ? servidor : outro_servidor_;
    }

    // A copy of the program at the user's own desk, with a run in it.
    struct Copia {
        Copia(DuasContas &m, Quem quem) : geral((quem == Eva ? m.da_eva_ : m.do_rui_).path())
        {
            geral.CaminhoBD = m.s.Base();
            geral.IdiomaActual = m.s.geral.IdiomaActual;
            geral.SessaoActual = m.Sessao_De(quem);
            corrida = std::make_unique<Sincronizacao>(geral, m.s.relogio,
                                                      std::make_unique<LivroEmMemoria>(m.Servidor_De(quem)),
                                                      Sincronizacao::Modo::Normal);
            QObject::connect(corrida.get(), &Sincronizacao::Terminada, [this](const auto &r) { fim = r; });
        }
        Geral geral;
        std::unique_ptr<Sincronizacao> corrida;
        std::optional<ResultadoDaSincronizacao> fim;
    };

    ResultadoDaSincronizacao Corre(Quem quem)
    {
        Copia copia(*this, quem);
        copia.corrida->Comecar();
        while (!copia.fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return *copia.fim;
    }

    struct Ambas {
        ResultadoDaSincronizacao primeira, segunda;
        bool a_meio = false; // the first one was not over when the second one began
    };
    // The first one has had so many turns of the event loop when the other user's begins.
    Ambas Correm(int voltas, Quem primeira = Eva)
    {
        Copia uma(*this, primeira);
        Copia outra(*this, primeira == Eva ? Rui : Eva);
        uma.corrida->Comecar();
        for (int i = 0; i < voltas && !uma.fim; ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const bool a_meio = !uma.fim;
        outra.corrida->Comecar();
        while (!uma.fim || !outra.fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return {*uma.fim, *outra.fim, a_meio};
    }

    // In turn, until neither has anything to do any more.
    bool Sossegar()
    {
        for (int volta = 0; volta < 6; ++volta) {
            const std::array fins{Corre(Eva), Corre(Rui)};
            if (std::none_of(fins.begin(), fins.end(),
                             [](const auto &fim) { return fim.Mudou_Aqui() || fim.Mudou_La(); }))
                return true;
        }
        return false;
    }

    QStringList La_De(Quem quem)
    {
        QStringList todos = LadoDoServidor(Servidor_De(quem)).Tudo();
        todos.sort();
        return todos;
    }

private:
    Livros livros_;
    Sessao eva_, rui_;
    ServidorEmMemoria outro_servidor_;
    QTemporaryDir da_eva_, do_rui_; // with a config.ini each
};
