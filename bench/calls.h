// SPDX-License-Identifier: MIT
// How each operation is called at index i, where its result is found and how an operand is made to wait for the result
// before it. Written once for the values of every contender: their Traits say how to make, print and entangle them.
//
//     Traits::Value                              the type of a value
//     Traits::value(const Numeric&, int scale)   one of them
//     Traits::text(const Value&, int scale)      its coefficient at that scale in decimal, or "NaN"
//     Traits::word(const Value&)                 a word that depends on all of it
//     Traits::entangle(Value&, uint64_t zero)    changes nothing, but only when zero is known
#ifndef QV8NUMERIC_BENCH_CALLS_H
#define QV8NUMERIC_BENCH_CALLS_H

#include <bit>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "answers.h"
#include "kernels.h"
#include "order.h"
#include "trial.h"
#include "workload.h"

namespace qv8numeric_bench {

template <typename Traits>
std::vector<typename Traits::Value> values_of(const std::vector<Numeric>& numbers, int scale) {
    std::vector<typename Traits::Value> values;
    values.reserve(numbers.size());
    for (const Numeric& number : numbers) values.push_back(Traits::value(number, scale));
    return values;
}

inline void entangle_integer(std::int64_t& integer, std::uint64_t zero) { integer ^= static_cast<std::int64_t>(zero); }

// An operation whose result is a value.
template <typename Traits>
struct ValueResult {
    typename Traits::Value out = Traits::value(Numeric{}, 0);
    int result_scale = 0;

    std::uint64_t word() const { return Traits::word(out); }
    std::string text() const { return Traits::text(out, result_scale); }
};

template <typename Traits>
struct SameScaleCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    typename Kernels<Value>::SameScale* kernel;
    std::vector<Value> a, b;

    SameScaleCall(typename Kernels<Value>::SameScale* function, const Workload&, const Inputs& in)
        : kernel(function), a(values_of<Traits>(in.a, 0)), b(values_of<Traits>(in.b, 0)) {}
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&a[i], &b[i], &this->out); }
};

template <typename Traits>
struct RescalingCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    typename Kernels<Value>::Rescaling* kernel;
    NumericInfo a_info, b_info, result_info;
    std::vector<Value> a, b;

    RescalingCall(typename Kernels<Value>::Rescaling* function, const Workload& w, const Inputs& in)
        : kernel(function),
          a_info(w.a),
          b_info(w.b),
          result_info(w.result),
          a(values_of<Traits>(in.a, w.a.scale)),
          b(values_of<Traits>(in.b, w.b.scale)) {
        this->result_scale = w.result.scale;
    }
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&a_info, &b_info, &result_info, &a[i], &b[i], &this->out); }
};

// Both comparisons. The order is the result; it has no status.
template <typename Traits, typename Kernel>
struct CompareCall {
    using Value = typename Traits::Value;
    Kernel kernel;
    NumericInfo a_info, b_info;
    std::vector<Value> a, b;
    std::int32_t order = 0;

    CompareCall(Kernel function, const Workload& w, const Inputs& in)
        : kernel(function),
          a_info(w.a),
          b_info(w.b),
          a(values_of<Traits>(in.a, w.a.scale)),
          b(values_of<Traits>(in.b, w.b.scale)) {}
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) {
        if constexpr (std::is_invocable_v<Kernel, const Value*, const Value*>) {
            order = kernel(&a[i], &b[i]);
        } else {
            order = kernel(&a_info, &b_info, &a[i], &b[i]);
        }
        return NUMERIC_OK;
    }
    std::uint64_t word() const { return static_cast<std::uint64_t>(order); }
    std::string text() const { return std::to_string(order); }
};

template <typename Traits>
struct RescaleCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    decltype(Kernels<Value>::rescale) kernel;
    NumericInfo from, to;
    std::vector<Value> a;

    RescaleCall(decltype(Kernels<Value>::rescale) function, const Workload& w, const Inputs& in)
        : kernel(function), from(w.a), to(w.result), a(values_of<Traits>(in.a, w.a.scale)) {
        this->result_scale = w.result.scale;
    }
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&from, &to, &a[i], &this->out); }
};

// The operations in place: each works on a copy.
template <typename Traits, typename Function>
struct InPlaceCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    Function function;  // (Value*, index)
    std::vector<Value> a;

    InPlaceCall(Function in_place, const Workload& w, const Inputs& in)
        : function(in_place), a(values_of<Traits>(in.a, w.a.scale)) {
        this->result_scale = w.a.scale;
    }
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) {
        this->out = a[i];
        return function(&this->out, i);
    }
};

template <typename Traits>
struct ToTextCall {
    using Value = typename Traits::Value;
    typename Kernels<Value>::ToText* kernel;
    NumericInfo info;
    std::int32_t places;
    std::vector<Value> a;
    char buffer[128] = {};

    ToTextCall(typename Kernels<Value>::ToText* function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.a), places(w.places), a(values_of<Traits>(in.a, w.a.scale)) {}
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&a[i], &info, 0, places, buffer, sizeof buffer); }
    // Its first digit: the one that all of the division has to be done for. (The sign is in byte 0.)
    std::uint64_t word() const { return static_cast<std::uint64_t>(buffer[1]); }
    std::string text() const { return buffer; }
};

template <typename Traits>
struct FromTextCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    typename Kernels<Value>::FromText* kernel;
    NumericInfo info;
    std::vector<char> characters;
    std::vector<std::size_t> starts;
    char* end = nullptr;

    FromTextCall(typename Kernels<Value>::FromText* function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.result) {
        this->result_scale = w.result.scale;
        for (const std::string& text : in.texts) {
            starts.push_back(characters.size());
            characters.insert(characters.end(), text.c_str(), text.c_str() + text.size() + 1);
        }
    }
    void entangle(std::size_t i, std::uint64_t zero) { starts[i] ^= zero; }
    NumericStatus run(std::size_t i) { return kernel(characters.data() + starts[i], &info, &this->out, &end); }
};

template <typename Traits>
struct FromDoubleCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    decltype(Kernels<Value>::from_double) kernel;
    NumericInfo info;
    std::vector<double> doubles;

    FromDoubleCall(decltype(Kernels<Value>::from_double) function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.result), doubles(in.doubles) {
        this->result_scale = w.result.scale;
    }
    void entangle(std::size_t i, std::uint64_t zero) {
        doubles[i] = std::bit_cast<double>(std::bit_cast<std::uint64_t>(doubles[i]) ^ zero);
    }
    NumericStatus run(std::size_t i) { return kernel(&info, &this->out, doubles[i]); }
};

template <typename Traits>
struct ToDoubleCall {
    using Value = typename Traits::Value;
    decltype(Kernels<Value>::to_double) kernel;
    NumericInfo info;
    std::vector<Value> a;
    double out = 0;

    ToDoubleCall(decltype(Kernels<Value>::to_double) function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.a), a(values_of<Traits>(in.a, w.a.scale)) {}
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&a[i], &info, &out); }
    std::uint64_t word() const { return std::bit_cast<std::uint64_t>(out); }
    std::string text() const { return text_of(out); }
};

template <typename Traits>
struct FromIntegerCall : ValueResult<Traits> {
    using Value = typename Traits::Value;
    decltype(Kernels<Value>::from_integer) kernel;
    NumericInfo info;
    std::vector<std::int64_t> integers;

    FromIntegerCall(decltype(Kernels<Value>::from_integer) function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.result), integers(in.integers) {
        this->result_scale = w.result.scale;
    }
    void entangle(std::size_t i, std::uint64_t zero) { entangle_integer(integers[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(integers[i], &info, &this->out); }
};

template <typename Traits>
struct ToIntegerCall {
    using Value = typename Traits::Value;
    decltype(Kernels<Value>::to_integer) kernel;
    NumericInfo info;
    std::vector<Value> a;
    std::int64_t out = 0;

    ToIntegerCall(decltype(Kernels<Value>::to_integer) function, const Workload& w, const Inputs& in)
        : kernel(function), info(w.a), a(values_of<Traits>(in.a, w.a.scale)) {}
    void entangle(std::size_t i, std::uint64_t zero) { Traits::entangle(a[i], zero); }
    NumericStatus run(std::size_t i) { return kernel(&a[i], &info, &out); }
    std::uint64_t word() const { return static_cast<std::uint64_t>(out); }
    std::string text() const { return std::to_string(out); }
};

// The trial of a call.
template <typename Call>
class TrialOf : public Trial {
  public:
    explicit TrialOf(Call call) : call_(std::move(call)) {}

    Answer answer(std::size_t i) override {
        const NumericStatus status = call_.run(i);
        return {status, call_.text()};
    }

    // The order is copied, so that the loop keeps it in registers whatever the call may write to.
    void independent_calls(std::size_t count) override {
        Order order = order_;
        for (; count > 0; --count) (void)call_.run(order.next());
        order_ = order;
    }

    void dependent_calls(std::size_t count) override {
        Order order = order_;
        std::uint64_t zero = 0;
        for (; count > 0; --count) {
            const std::size_t i = order.next();
            call_.entangle(i, zero);
            (void)call_.run(i);
            zero = call_.word() & no_bits_;
        }
        order_ = order;
    }

  private:
    Call call_;
    Order order_;
    volatile std::uint64_t no_bits_ = 0;  // which the compiler cannot know
};

template <typename Call>
std::unique_ptr<Trial> trial_of(Call call) {
    return std::make_unique<TrialOf<Call>>(std::move(call));
}

// Null when the contender has no such operation.
template <typename Traits>
std::unique_ptr<Trial> trial_for(const Kernels<typename Traits::Value>& k, const Workload& w, const Inputs& in) {
    using Value = typename Traits::Value;
    const auto when = [&](auto* kernel, auto make) { return kernel ? trial_of(make(kernel)) : nullptr; };
    const auto same_scale = [&](auto* kernel) { return SameScaleCall<Traits>(kernel, w, in); };
    const auto rescaling = [&](auto* kernel) { return RescalingCall<Traits>(kernel, w, in); };
    const auto compare = [&](auto* kernel) { return CompareCall<Traits, decltype(kernel)>(kernel, w, in); };
    const auto to_text = [&](auto* kernel) { return ToTextCall<Traits>(kernel, w, in); };
    const auto from_text = [&](auto* kernel) { return FromTextCall<Traits>(kernel, w, in); };
    const auto in_place = [&](auto function) { return InPlaceCall<Traits, decltype(function)>(function, w, in); };
    switch (w.operation) {
        case Operation::kAdd: return when(k.add, same_scale);
        case Operation::kCompare: return when(k.compare, compare);
        case Operation::kRescale:
            return when(k.rescale, [&](auto* kernel) { return RescaleCall<Traits>(kernel, w, in); });
        case Operation::kRound:
            return when(k.round, [&](auto* kernel) {
                return in_place([kernel, info = w.a, places = w.places](Value* value, std::size_t) {
                    return kernel(&info, places, value);
                });
            });
        case Operation::kRescalingAdd: return when(k.rescaling_add, rescaling);
        case Operation::kRescalingMultiply: return when(k.rescaling_multiply, rescaling);
        case Operation::kRescalingDivide: return when(k.rescaling_divide, rescaling);
        case Operation::kRescalingCompare: return when(k.rescaling_compare, compare);
        case Operation::kDivideByInteger:
            return when(k.divide_by_integer, [&](auto* kernel) {
                return in_place([kernel, info = w.a, &d = in.integers](Value* value, std::size_t i) {
                    return kernel(value, &info, static_cast<std::int32_t>(d[i]));
                });
            });
        case Operation::kMultiplyByInteger:
            return when(k.multiply_by_integer, [&](auto* kernel) {
                return in_place([kernel, &m = in.integers](Value* value, std::size_t i) {
                    return kernel(value, static_cast<std::int32_t>(m[i]));
                });
            });
        case Operation::kToText: return when(k.to_text, to_text);
        case Operation::kToGroupedText: return when(k.to_grouped_text, to_text);
        case Operation::kFromText: return when(k.from_text, from_text);
        case Operation::kFromGroupedText: return when(k.from_grouped_text, from_text);
        case Operation::kFromDouble:
            return when(k.from_double, [&](auto* kernel) { return FromDoubleCall<Traits>(kernel, w, in); });
        case Operation::kToDouble:
            return when(k.to_double, [&](auto* kernel) { return ToDoubleCall<Traits>(kernel, w, in); });
        case Operation::kFromInteger:
            return when(k.from_integer, [&](auto* kernel) { return FromIntegerCall<Traits>(kernel, w, in); });
        case Operation::kToInteger:
            return when(k.to_integer, [&](auto* kernel) { return ToIntegerCall<Traits>(kernel, w, in); });
    }
    return nullptr;
}

}  // namespace qv8numeric_bench

#endif
