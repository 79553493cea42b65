// SPDX-License-Identifier: MIT
// The decimals of PostgreSQL's client side: one digit a byte, on the heap, of any length.
#include "qv8numeric.h"
// The package's macro of that name would replace ours.
#include <pgtypes_numeric.h>
#undef NUMERIC_NAN

#include <cstdlib>
#include <cstring>
#include <memory>

#include "../contender.h"
#include "../inputs.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

// Copied by value, as the loops expect.
class PgNumeric {
  public:
    PgNumeric() : number_(PGTYPESnumeric_new()) {}
    explicit PgNumeric(std::string text) : number_(PGTYPESnumeric_from_asc(text.data(), nullptr)) {}
    PgNumeric(const PgNumeric& other) : PgNumeric() { *this = other; }
    PgNumeric& operator=(const PgNumeric& other) {
        if (this != &other) PGTYPESnumeric_copy(other.number_, number_);
        return *this;
    }
    ~PgNumeric() { PGTYPESnumeric_free(number_); }

    numeric* get() const { return number_; }

    void take(numeric* other) {
        PGTYPESnumeric_free(number_);
        number_ = other;
    }

  private:
    numeric* number_;
};

NumericStatus status_of(int result) { return result == 0 ? NUMERIC_OK : NUMERIC_OVERFLOW; }

NumericStatus add(const PgNumeric* a, const PgNumeric* b, PgNumeric* out) {
    return status_of(PGTYPESnumeric_add(a->get(), b->get(), out->get()));
}

std::int32_t compare(const PgNumeric* a, const PgNumeric* b) { return PGTYPESnumeric_cmp(a->get(), b->get()); }

std::int32_t rescaling_compare(const NumericInfo*, const NumericInfo*, const PgNumeric* a, const PgNumeric* b) {
    return compare(a, b);
}

NumericStatus to_text(const PgNumeric* value, const NumericInfo*, std::int32_t, std::int32_t output_scale, char* buffer,
                      std::size_t buffer_size) {
    const std::unique_ptr<char, void (*)(void*)> text(PGTYPESnumeric_to_asc(value->get(), output_scale), std::free);
    const std::size_t size = std::strlen(text.get()) + 1;
    if (size > buffer_size) return NUMERIC_BUFFER_TOO_SMALL;
    std::memcpy(buffer, text.get(), size);
    return NUMERIC_OK;
}

NumericStatus from_text(const char* text, const NumericInfo*, PgNumeric* result, char** end) {
    numeric* const number = PGTYPESnumeric_from_asc(const_cast<char*>(text), end);
    if (!number) return NUMERIC_SYNTAX_ERROR;
    result->take(number);
    return NUMERIC_OK;
}

NumericStatus to_double(const PgNumeric* in, const NumericInfo*, double* out) {
    return status_of(PGTYPESnumeric_to_double(in->get(), out));
}

NumericStatus from_integer(std::int64_t value, const NumericInfo*, PgNumeric* out) {
    return status_of(PGTYPESnumeric_from_long(value, out->get()));
}

NumericStatus to_integer(const PgNumeric* in, const NumericInfo*, std::int64_t* out) {
    long integer;
    const NumericStatus status = status_of(PGTYPESnumeric_to_long(in->get(), &integer));
    *out = integer;
    return status;
}

// The digits without their point are the coefficient.
std::string coefficient(const PgNumeric& value, int scale) {
    char digits[128];
    to_text(&value, nullptr, 0, scale, digits, sizeof digits);
    std::string text(digits);
    std::erase(text, '.');
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    text.erase(sign, std::min(text.find_first_not_of('0', sign), text.size() - 1) - sign);
    return text;
}

struct PostgreSql {
    using Value = PgNumeric;
    static constexpr const char* kName = "PostgreSQL pgtypes";
    static constexpr Manners kManners = Manners::kCommon;

    static Value value(const Numeric& number, int scale) { return PgNumeric(plain_text(number, scale)); }
    static std::string text(const Value& value, int scale) { return coefficient(value, scale); }
    static std::uint64_t word(const Value& value) {
        return value.get()->ndigits > 0 ? value.get()->digits[0] : std::uint64_t{0};
    }
    static void entangle(Value& value, std::uint64_t zero) { value.get()->weight ^= static_cast<int>(zero); }

    static const Kernels<Value>& kernels() {
        static const Kernels<Value> kernels = [] {
            Kernels<Value> k{};
            k.add = add;
            k.compare = compare;
            k.rescaling_compare = rescaling_compare;
            k.to_text = to_text;
            k.from_text = from_text;
            k.to_double = to_double;
            k.from_integer = from_integer;
            k.to_integer = to_integer;
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int) {
        // It keeps every digit it reads, and rounds halves up where it rounds.
        if (w.operation == Operation::kFromText && w.operands.find("rounded") != std::string::npos) return std::nullopt;
        if (w.a.scale < 0) return std::nullopt;
        if (w.operation == Operation::kToText && w.places < w.a.scale) return std::nullopt;
        return part_without("no mode, no status");
    }
};

}  // namespace

std::unique_ptr<Contender> postgresql_peer() { return std::make_unique<Peer<PostgreSql>>(); }

}  // namespace qv8numeric_bench
