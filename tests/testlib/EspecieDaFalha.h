// What kind of failure a person would be told of.
#pragma once

#include "platform/Failure.h"

#include <optional>

namespace teste
{
// The kind of the failure that the work raises; nothing where it raises none.
template<class Work> std::optional<Failure::Kind> Especie_Da_Falha(const Work &work)
{
    try {
        work();
    } catch (const Failure &failure) {
        return failure.kind();
    }
    return {};
}
} // namespace teste
