// What this process, and what it starts, say on their two outputs while one lives. For systems with file descriptors.
#pragma once

#include <array>
#include <cstdio>
#include <QTemporaryFile>
#include <unistd.h>

class SaidaDesviada
{
public:
    SaidaDesviada()
    {
        std::fflush(nullptr);
        if (!ficheiro_.open()) qFatal("no file to write to");
        for (int i = 0; i < 2; ++i) {
            antes_[static_cast<std::size_t>(i)] = ::dup(i + 1);
            ::dup2(ficheiro_.handle(), i + 1);
        }
    }
    ~SaidaDesviada()
    {
        std::fflush(nullptr);
        for (int i = 0; i < 2; ++i) {
            ::dup2(antes_[static_cast<std::size_t>(i)], i + 1);
            ::close(antes_[static_cast<std::size_t>(i)]);
        }
    }
    SaidaDesviada(const SaidaDesviada &) = delete;
    SaidaDesviada &operator=(const SaidaDesviada &) = delete;

    QByteArray Dito() const
    {
        QFile lido(ficheiro_.fileName());
        return lido.open(QIODevice::ReadOnly) ? lido.readAll() : QByteArray("<unread>");
    }

private:
    QTemporaryFile ficheiro_;
    std::array<int, 2> antes_{-1, -1};
};
