// A network between a program and a server on this machine, in a thread of its own: slow, silent, or cut, as a test
// tells it. Each byte passes through it.
#pragma once

#include <array>
#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

class Intermediario
{
public:
    enum Modo {
        Passa,
        Cala,             // takes what comes and hands nothing on; nobody is told
        Engole_Respostas, // what is asked arrives, and no answer comes back
        Recusa,           // every connection is cut, those that come too
        Corta_Ao_Pedir,   // what is asked next arrives, and both ends are cut behind it; then all passes
        Corta_A_Resposta, // the next answer is cut after its first bytes; then all passes
        Corta_A_Que_Diz,  // likewise the next answer that holds those words
    };

    explicit Intermediario(std::uint16_t servidor) : servidor_(servidor)
    {
        porta_de_escuta_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in aqui = Morada(0);
        ::bind(porta_de_escuta_, reinterpret_cast<sockaddr *>(&aqui), sizeof aqui);
        socklen_t tamanho = sizeof aqui;
        ::getsockname(porta_de_escuta_, reinterpret_cast<sockaddr *>(&aqui), &tamanho);
        porta_ = ntohs(aqui.sin_port);
        ::listen(porta_de_escuta_, 64);
        fio_ = std::thread([this] { Correr(); });
    }
    ~Intermediario()
    {
        fim_ = true;
        fio_.join();
        for (Par &par : pares_)
            Fechar(par);
        ::close(porta_de_escuta_);
    }
    Intermediario(const Intermediario &) = delete;
    Intermediario &operator=(const Intermediario &) = delete;

    std::uint16_t Porta() const { return porta_; }
    void Mudar_De_Servidor(std::uint16_t servidor) { servidor_ = servidor; }

    std::atomic<Modo> modo = Passa;
    std::string palavras; // of the last way; to be set before it
    std::atomic<int> atraso{0};   // microseconds on each way
    std::atomic<int> viagens{0};  // questions: how often the program spoke after the server
    std::atomic<int> ligacoes{0}; // that came
    std::atomic<int> cortes{0};   // that one of the last three ways made

    // Cuts whatever is connected now.
    void Cortar()
    {
        ++pedidos_de_corte_;
        while (cortes_pedidos_feitos_ < pedidos_de_corte_)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

private:
    using Instante = std::chrono::steady_clock::time_point;
    struct Bocado {
        std::string bytes;
        Instante quando;
    };
    struct Par {
        int programa = -1;
        int servidor = -1;
        std::deque<Bocado> para_o_servidor;
        std::deque<Bocado> para_o_programa;
        bool falou_o_servidor = true;
        bool acabou = false;
        bool cortar_depois_de_escrever = false;
    };

    static sockaddr_in Morada(std::uint16_t porta)
    {
        sockaddr_in morada{};
        morada.sin_family = AF_INET;
        morada.sin_port = htons(porta);
        morada.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return morada;
    }
    // The other end is told at once, and told that it was cut.
    static void Fechar(Par &par)
    {
        const linger ja{1, 0};
        for (int *ponta : {&par.programa, &par.servidor}) {
            if (*ponta < 0) continue;
            if (ponta == &par.programa) ::setsockopt(*ponta, SOL_SOCKET, SO_LINGER, &ja, sizeof ja);
            ::close(*ponta);
            *ponta = -1;
        }
        par.acabou = true;
    }

    void Correr()
    {
        while (!fim_) {
            std::vector<pollfd> esperados{{porta_de_escuta_, POLLIN, 0}};
            for (const Par &par : pares_) {
                esperados.push_back({par.programa, POLLIN, 0});
                esperados.push_back({par.servidor, POLLIN, 0});
            }
            if (modo == Cala || Haver_Pendentes())
                std::this_thread::sleep_for(std::chrono::microseconds(modo == Cala ? 2000 : 200));
            else
                ::poll(esperados.data(), esperados.size(), 2);
            if (::poll(esperados.data(), 1, 0) > 0) Aceitar();
            for (Par &par : pares_)
                Servir(par);
            if (const int pedidos = pedidos_de_corte_; cortes_pedidos_feitos_ < pedidos) {
                for (Par &par : pares_)
                    Fechar(par);
                cortes_pedidos_feitos_ = pedidos;
            }
            pares_.remove_if([](const Par &par) { return par.acabou; });
        }
    }
    bool Haver_Pendentes() const
    {
        for (const Par &par : pares_)
            if (!par.para_o_servidor.empty() || !par.para_o_programa.empty()) return true;
        return false;
    }
    void Aceitar()
    {
        Par par;
        par.programa = ::accept(porta_de_escuta_, nullptr, nullptr);
        if (par.programa < 0) return;
        ++ligacoes;
        if (modo == Recusa) return Fechar(par);
        par.servidor = ::socket(AF_INET, SOCK_STREAM, 0);
        const sockaddr_in la = Morada(servidor_);
        if (::connect(par.servidor, reinterpret_cast<const sockaddr *>(&la), sizeof la) != 0) return Fechar(par);
        const int sim = 1;
        ::setsockopt(par.programa, IPPROTO_TCP, TCP_NODELAY, &sim, sizeof sim);
        ::setsockopt(par.servidor, IPPROTO_TCP, TCP_NODELAY, &sim, sizeof sim);
        pares_.push_back(std::move(par));
    }
    void Servir(Par &par)
    {
        if (modo == Recusa) return Fechar(par);
        if (modo == Cala) return;
        if (!Ler(par.programa, par, true) || !Ler(par.servidor, par, false)) return Fechar(par);
        Escrever(par.servidor, par.para_o_servidor);
        if (modo == Engole_Respostas) par.para_o_programa.clear();
        if (par.cortar_depois_de_escrever && par.para_o_servidor.empty()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20)); // it has been read by then
            return Fechar(par);
        }
        Escrever(par.programa, par.para_o_programa);
        if (par.cortar_depois_de_escrever && par.para_o_programa.empty()) Fechar(par);
    }
    // False once that end has gone.
    bool Ler(int ponta, Par &par, bool do_programa)
    {
        std::array<char, 65536> lugar;
        const ssize_t lidos = ::recv(ponta, lugar.data(), lugar.size(), MSG_DONTWAIT);
        if (lidos == 0) return false;
        if (lidos < 0) return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
        std::string bytes(lugar.data(), static_cast<std::size_t>(lidos));
        if (do_programa && par.falou_o_servidor) ++viagens;
        par.falou_o_servidor = !do_programa;
        Modo agora = modo;
        if (do_programa && agora == Corta_Ao_Pedir && modo.compare_exchange_strong(agora, Passa)) {
            par.cortar_depois_de_escrever = true;
            ++cortes;
        }
        const bool corta_se = agora == Corta_A_Resposta ||
                              (agora == Corta_A_Que_Diz && bytes.find(palavras) != std::string::npos);
        if (!do_programa && corta_se && modo.compare_exchange_strong(agora, Passa)) {
            constexpr std::size_t inicio = 3;
            bytes.resize(std::min(bytes.size(), inicio));
            par.cortar_depois_de_escrever = true;
            ++cortes;
        }
        (do_programa ? par.para_o_servidor : par.para_o_programa)
            .push_back({std::move(bytes), std::chrono::steady_clock::now() + std::chrono::microseconds(atraso)});
        return true;
    }
    static void Escrever(int ponta, std::deque<Bocado> &bocados)
    {
        while (!bocados.empty() && bocados.front().quando <= std::chrono::steady_clock::now()) {
            std::string &bytes = bocados.front().bytes;
            const ssize_t escritos = ::send(ponta, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
            if (escritos < 0) return;
            bytes.erase(0, static_cast<std::size_t>(escritos));
            if (!bytes.empty()) return;
            bocados.pop_front();
        }
    }

    std::atomic<std::uint16_t> servidor_;
    std::uint16_t porta_ = 0;
    int porta_de_escuta_ = -1;
    std::list<Par> pares_;
    std::atomic<bool> fim_ = false;
    std::atomic<int> pedidos_de_corte_{0};
    std::atomic<int> cortes_pedidos_feitos_{0};
    std::thread fio_;
};
