// SPDX-License-Identifier: GPL-3.0-or-later
// Stands for the library of ciphers where the PDF library is linked statically: of the ten functions that it calls, the
// digest of object keys and file identifiers is made here; the others load the real one when the first of them is
// called, for encrypted files only. Loading it with its eight libraries takes longer than drawing a small sheet.
//
// The declarations are those of gnutls/crypto.h of version 3 (libgnutls.so.30); its types are opaque here.
#include "base/process/SharedLibrary.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <nettle/md5.h>

namespace {

const sm::base::SharedLibrary& Library()
{
    static const sm::base::SharedLibrary kLibrary("libgnutls.so.30");
    return kLibrary;
}

/// The function `symbol` of the real library, of the type of the one that stands for it. Throws std::runtime_error.
template <class Function> Function* Real(Function*, const char* symbol)
{
    Function* function = nullptr;
    Library().Find(function, symbol);
    return function;
}

constexpr int kMd5 = 2; // GNUTLS_DIG_MD5

/// What a handle of a digest points to.
struct Hash {
    void* real = nullptr; ///< the library's own handle; null for MD5
    md5_ctx md5{};
};

} // namespace

extern "C" {

int gnutls_hash_init(void** hash, int algorithm)
{
    auto made = std::make_unique<Hash>();
    if (algorithm != kMd5) {
        const int result = Real(gnutls_hash_init, "gnutls_hash_init")(&made->real, algorithm);
        if (result < 0)
            return result;
    }
    md5_init(&made->md5);
    *hash = made.release();
    return 0;
}

int gnutls_hash(void* hash, const void* data, std::size_t size)
{
    auto* own = static_cast<Hash*>(hash);
    if (own->real != nullptr)
        return Real(gnutls_hash, "gnutls_hash")(own->real, data, size);
    md5_update(&own->md5, size, static_cast<const std::uint8_t*>(data));
    return 0;
}

void gnutls_hash_deinit(void* hash, void* digest)
{
    const std::unique_ptr<Hash> own(static_cast<Hash*>(hash));
    if (own->real != nullptr)
        Real(gnutls_hash_deinit, "gnutls_hash_deinit")(own->real, digest);
    else if (digest != nullptr)
        md5_digest(&own->md5, MD5_DIGEST_SIZE, static_cast<std::uint8_t*>(digest));
}

int gnutls_cipher_init(void** cipher, int algorithm, const void* key, const void* start)
{
    return Real(gnutls_cipher_init, "gnutls_cipher_init")(cipher, algorithm, key, start);
}

int gnutls_cipher_encrypt2(void* cipher, const void* plain, std::size_t plainSize, void* out, std::size_t outSize)
{
    static auto* const real = Real(gnutls_cipher_encrypt2, "gnutls_cipher_encrypt2");
    return real(cipher, plain, plainSize, out, outSize);
}

int gnutls_cipher_decrypt2(void* cipher, const void* secret, std::size_t secretSize, void* out, std::size_t outSize)
{
    static auto* const real = Real(gnutls_cipher_decrypt2, "gnutls_cipher_decrypt2");
    return real(cipher, secret, secretSize, out, outSize);
}

void gnutls_cipher_deinit(void* cipher)
{
    Real(gnutls_cipher_deinit, "gnutls_cipher_deinit")(cipher);
}

std::size_t gnutls_cipher_get_key_size(int algorithm)
{
    return Real(gnutls_cipher_get_key_size, "gnutls_cipher_get_key_size")(algorithm);
}

int gnutls_rnd(int level, void* data, std::size_t size)
{
    return Real(gnutls_rnd, "gnutls_rnd")(level, data, size);
}

const char* gnutls_strerror(int error)
{
    return Real(gnutls_strerror, "gnutls_strerror")(error);
}
}
