// Counts the bytes that this process has asked of the heap and not given back. A test program includes it in
// one of its files, since it stands in the place of the library's own malloc; under AddressSanitizer that one
// tells of itself.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdlib>

namespace memoria
{
inline std::atomic<std::size_t> pedida{0};
inline std::atomic<std::size_t> mais_alta{0};

inline void Somar(std::size_t bytes)
{
    const std::size_t agora = pedida += bytes;
    std::size_t antes = mais_alta;
    while (agora > antes && !mais_alta.compare_exchange_weak(antes, agora)) {
    }
}

inline void Subtrair(std::size_t bytes) { pedida -= bytes; }

// The most that was asked for at a time while one lives, beyond what was asked for before.
class Medida
{
public:
    Medida() : antes_(pedida) { mais_alta = antes_; }
    // False on a system that lets nobody measure: a test that does nothing else is skipped then.
    static bool Possivel() { return true; }
    std::size_t Maximo() const { return mais_alta - antes_; }
    // Whether it was measured at all, by what must have been asked for at least.
    static bool Tirada(std::size_t medida, std::size_t ao_menos) { return medida > ao_menos; }

private:
    std::size_t antes_;
};
} // namespace memoria

// NOLINTBEGIN(bugprone-reserved-identifier): the library's own names
#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own header does not come with every compiler.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*asked)(const volatile void *, std::size_t),
                                              void (*freed)(const volatile void *));
std::size_t __sanitizer_get_allocated_size(const volatile void *block);
}

inline const int memoria_ganchos = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void *, std::size_t bytes) { memoria::Somar(bytes); },
    [](const volatile void *bloco) { memoria::Subtrair(__sanitizer_get_allocated_size(bloco)); });
#else
#include <cerrno>
#include <malloc.h>

extern "C" {
void *__libc_malloc(std::size_t bytes);
void *__libc_calloc(std::size_t blocos, std::size_t bytes);
void *__libc_realloc(void *bloco, std::size_t bytes);
void *__libc_memalign(std::size_t fronteira, std::size_t bytes);
void __libc_free(void *bloco);

void *malloc(std::size_t bytes) noexcept
{
    void *bloco = __libc_malloc(bytes);
    memoria::Somar(malloc_usable_size(bloco));
    return bloco;
}

void *calloc(std::size_t blocos, std::size_t bytes) noexcept
{
    void *bloco = __libc_calloc(blocos, bytes);
    memoria::Somar(malloc_usable_size(bloco));
    return bloco;
}

void *realloc(void *velho, std::size_t bytes) noexcept
{
    const std::size_t antes = malloc_usable_size(velho);
    void *bloco = __libc_realloc(velho, bytes);
    if (bloco == nullptr && bytes != 0) return nullptr; // the old block stays
    memoria::Somar(malloc_usable_size(bloco));
    memoria::Subtrair(antes);
    return bloco;
}

void *memalign(std::size_t fronteira, std::size_t bytes) noexcept
{
    void *bloco = __libc_memalign(fronteira, bytes);
    memoria::Somar(malloc_usable_size(bloco));
    return bloco;
}

void *aligned_alloc(std::size_t fronteira, std::size_t bytes) noexcept { return memalign(fronteira, bytes); }

int posix_memalign(void **onde, std::size_t fronteira, std::size_t bytes) noexcept
{
    void *bloco = memalign(fronteira, bytes);
    if (bloco == nullptr) return ENOMEM;
    *onde = bloco;
    return 0;
}

void free(void *bloco) noexcept
{
    memoria::Subtrair(malloc_usable_size(bloco));
    __libc_free(bloco);
}
}
#endif
// NOLINTEND(bugprone-reserved-identifier)
