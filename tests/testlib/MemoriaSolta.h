// Memory that was freed under a piece that still serves, so that the heap cannot shrink by itself.
#pragma once

#include <array>
#include <memory>
#include <QFile>
#include <vector>

class MemoriaSolta
{
public:
    static constexpr double MB_soltos = 40;

    MemoriaSolta()
    {
        for (int i = 0; i < 40000; ++i) {
            pedacos_.push_back(std::make_unique<Pedaco>());
            pedacos_.back()->fill('x');
        }
        pedacos_.erase(pedacos_.begin(), pedacos_.end() - 1); // the last one holds the heap's end
    }

    bool Inteiro() const { return pedacos_.back()->front() == 'x' && pedacos_.back()->back() == 'x'; }

    // Of the process, in use by its pages.
    static double MB()
    {
        constexpr double pagina = 4096 / 1e6;
        QFile ficheiro(QStringLiteral("/proc/self/statm"));
        if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
        return ficheiro.readAll().split(' ').value(1).toDouble() * pagina;
    }

    // Whether that can be read here, of an allocator that gives memory back.
    static constexpr bool Mede_Se()
    {
#if defined(Q_OS_LINUX) && !defined(__SANITIZE_ADDRESS__)
        return true;
#else
        return false;
#endif
    }

private:
    using Pedaco = std::array<char, 1000>; // small ones come out of the heap, large ones have pages of their own

    std::vector<std::unique_ptr<Pedaco>> pedacos_;
};
