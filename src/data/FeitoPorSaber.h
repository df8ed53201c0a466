// Work that is done as one or not at all, over whose end a server went away: whether it was done is known
// once the server is back. What was done is not done twice.
#pragma once

#include <functional>

class DE;

class FeitoPorSaber
{
public:
    explicit FeitoPorSaber(DE &de) : de_(de) {}

    // As DE::Tudo_Ou_Nada. Where an earlier one of this object was done after all nothing is done.
    void Correr(const std::function<void()> &trabalho);

    // Whether one was done, or may have been, though Correr() raised.
    bool Em_Duvida() const;
    // Whether it has turned out that nothing was done.
    bool Nao_Chegou() const;

private:
    DE &de_;
    int perdida_ = 0; // its number among the writes that lost their answer; 0: none
};
