#include "mathparser/function_catalogue.h"

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::uint32_t HashOf(std::string_view name) {
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char c : name) {
    hash = (hash ^ static_cast<unsigned char>(LowerCase(c))) * 16777619U;
  }
  return hash ^ (hash >> 15);
}

bool SameName(std::string_view keyword, std::string_view name) {
  if (keyword.size() != name.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (keyword[i] != LowerCase(name[i])) return false;
  }
  return true;
}

}  // namespace

FunctionCatalogue::FunctionCatalogue(std::initializer_list<FunctionFamily> families) {
  for (const FunctionFamily& family : families) {
    for (const FunctionEntry& entry : family) {
      entries_.push_back(&entry);
      std::size_t bucket = HashOf(entry.keyword) % kBuckets;
      while (buckets_[bucket] != 0) bucket = (bucket + 1) % kBuckets;
      buckets_[bucket] = static_cast<std::uint16_t>(entries_.size());
    }
  }
}

const FunctionEntry* FunctionCatalogue::Find(std::string_view name) const {
  if (name.size() > kLongestKeyword) return nullptr;
  for (std::size_t bucket = HashOf(name) % kBuckets; buckets_[bucket] != 0;
       bucket = (bucket + 1) % kBuckets) {
    const FunctionEntry* entry = entries_[buckets_[bucket] - 1U];
    if (SameName(entry->keyword, name)) return entry;
  }
  return nullptr;
}

const FunctionCatalogue& StandardCatalogue() {
  static const FunctionCatalogue catalogue{
      ElementaryFunctions(),
      LogicFunctions(),
      IntegerFunctions(),
      RoundingFunctions(),
      GammaFunctions(),
      ErrorFunctions(),
      IncompleteGammaFunctions(),
      IncompleteBetaFunctions(),
      DistributionFunctions(),
      BesselFunctions(),
      ModifiedBesselFunctions(),
      AiryFunctions(),
      EllipticFunctions(),
      ExponentialIntegralFunctions(),
      SineIntegralFunctions(),
      FresnelFunctions(),
      ZetaFunctions(),
      PolynomialFunctions(),
      HypergeometricFunctions(),
      WaveformFunctions(),
  };
  return catalogue;
}

}  // namespace zentab::mathparser
