// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <stdexcept>

#include "coefficients.h"
#include "contender.h"

namespace qv8numeric_bench {
namespace {

template <typename Function>
void find(void* object, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(object, name));
    if (!function) throw std::runtime_error(dlerror());
}

Kernels<Numeric> kernels_of(void* object) {
    Kernels<Numeric> k{};
    find(object, "QV8NumericAdd", k.add);
    find(object, "QV8NumericCmp", k.compare);
    find(object, "QV8NumericRescale", k.rescale);
    find(object, "QV8NumericRound", k.round);
    find(object, "QV8NumericRescalingAdd", k.rescaling_add);
    find(object, "QV8NumericRescalingMul", k.rescaling_multiply);
    find(object, "QV8NumericRescalingDiv", k.rescaling_divide);
    find(object, "QV8NumericRescalingCmp", k.rescaling_compare);
    find(object, "QV8NumericDiv", k.divide_by_integer);
    find(object, "QV8NumericMul", k.multiply_by_integer);
    find(object, "QV8NumericNum2Str", k.to_text);
    find(object, "QV8NumericNum2Dgstr", k.to_grouped_text);
    find(object, "QV8NumericStr2Num", k.from_text);
    find(object, "QV8NumericDgstr2Num", k.from_grouped_text);
    find(object, "QV8NumericDbl2Num", k.from_double);
    find(object, "QV8NumericNum2Dbl", k.to_double);
    find(object, "QV8NumericLong2Num", k.from_integer);
    find(object, "QV8NumericNum2Long", k.to_integer);
    return k;
}

// Two builds of one soname live side by side, since each is opened by its path and keeps its names to itself.
class Library : public Contender {
  public:
    Library(std::string name, const std::string& path) : name_(std::move(name)) {
        void* object = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!object) throw std::runtime_error(dlerror());
        kernels_ = kernels_of(object);
    }

    std::string name() const override { return name_; }
    Manners manners() const override { return Manners::kLibrary; }
    std::optional<Part> part_in(const Workload&, int) const override { return whole_job(); }
    std::unique_ptr<Trial> trial(const Workload& workload, const Inputs& inputs) const override {
        return trial_for<CoefficientTraits>(kernels_, workload, inputs);
    }

  private:
    std::string name_;
    Kernels<Numeric> kernels_;
};

}  // namespace

std::unique_ptr<Contender> library(const std::string& name, const std::string& path) {
    return std::make_unique<Library>(name, path);
}

}  // namespace qv8numeric_bench
