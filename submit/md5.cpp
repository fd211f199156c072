#include "submit/md5.h"

#include "base/windows.h"
#include "config/plugin_data.h"

#include <array>
#include <bcrypt.h>

namespace orv {
namespace {

constexpr std::size_t kDigestSize = 16;
using Digest = std::array<UCHAR, kDigestSize>;

class Md5Provider {
public:
    Md5Provider()
        : status_(::BCryptOpenAlgorithmProvider(&algorithm_, BCRYPT_MD5_ALGORITHM, nullptr, 0)) {}
    Md5Provider(const Md5Provider&) = delete;
    Md5Provider& operator=(const Md5Provider&) = delete;
    ~Md5Provider() {
        if (algorithm_ != nullptr)
            ::BCryptCloseAlgorithmProvider(algorithm_, 0);
    }
    NTSTATUS status() const { return status_; }
    BCRYPT_ALG_HANDLE get() const { return algorithm_; }

private:
    BCRYPT_ALG_HANDLE algorithm_ = nullptr;
    NTSTATUS status_;
};

class HashInProgress {
public:
    explicit HashInProgress(BCRYPT_ALG_HANDLE algorithm)
        : status_(::BCryptCreateHash(algorithm, &hash_, nullptr, 0, nullptr, 0, 0)) {}
    HashInProgress(const HashInProgress&) = delete;
    HashInProgress& operator=(const HashInProgress&) = delete;
    ~HashInProgress() {
        if (hash_ != nullptr)
            ::BCryptDestroyHash(hash_);
    }
    NTSTATUS status() const { return status_; }

    NTSTATUS digest(std::string bytes, Digest& result) {
        const NTSTATUS added = ::BCryptHashData(hash_, reinterpret_cast<PUCHAR>(&bytes[0]),
                                                static_cast<ULONG>(bytes.size()), 0);
        return added < 0 ? added : ::BCryptFinishHash(hash_, result.data(), kDigestSize, 0);
    }

private:
    BCRYPT_HASH_HANDLE hash_ = nullptr;
    NTSTATUS status_;
};

NTSTATUS ComputeDigest(const std::string& bytes, Digest& result) {
    const Md5Provider provider;
    if (provider.status() < 0)
        return provider.status();
    HashInProgress hash(provider.get());
    return hash.status() < 0 ? hash.status() : hash.digest(bytes, result);
}

} // namespace

std::string Md5Hex(const std::string& bytes) {
    Digest digest{};
    const NTSTATUS status = ComputeDigest(bytes, digest);
    if (status < 0) {
        PluginData::instance().writeLog(kError, "MD5 error, code is " + std::to_string(status));
        return {};
    }
    const char* const digits = "0123456789abcdef";
    std::string text;
    for (const UCHAR byte : digest) {
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace orv
