// A module of clang-tidy without a finding of its own: the checks walk through the declarations of
// the project alone. In the libraries' headers, which are most of what a file includes, they could
// only find what is not told anyway, and that walk takes most of the time.

#include <clang-tidy/ClangTidyCheck.h>
#include <clang-tidy/ClangTidyModule.h>
#include <clang-tidy/ClangTidyModuleRegistry.h>
#include <clang/AST/ASTContext.h>
#include <clang/ASTMatchers/ASTMatchFinder.h>

#include <vector>

namespace zentab {
namespace {

class ProjectScope : public clang::tidy::ClangTidyCheck {
 public:
  using ClangTidyCheck::ClangTidyCheck;

  void registerMatchers(clang::ast_matchers::MatchFinder* finder) override {
    finder->addMatcher(clang::ast_matchers::translationUnitDecl().bind("unit"), this);
  }

  // The unit is visited in front of its declarations, which are taken from the scope after that.
  void check(const clang::ast_matchers::MatchFinder::MatchResult& result) override {
    const auto* const unit = result.Nodes.getNodeAs<clang::TranslationUnitDecl>("unit");
    const clang::SourceManager& sources = *result.SourceManager;
    std::vector<clang::Decl*> own;
    // Without those of precompiled headers, which would all be read for it.
    for (clang::Decl* const each : unit->noload_decls()) {
      if (!sources.isInSystemHeader(sources.getExpansionLoc(each->getLocation()))) {
        own.push_back(each);
      }
    }
    result.Context->setTraversalScope(own);
  }
};

class ScopeModule : public clang::tidy::ClangTidyModule {
 public:
  void addCheckFactories(clang::tidy::ClangTidyCheckFactories& factories) override {
    factories.registerCheck<ProjectScope>("zentab-project-scope");
  }
};

const clang::tidy::ClangTidyModuleRegistry::Add<ScopeModule> kModule(
    "zentab-module", "Keeps the checks to the project's declarations.");

}  // namespace
}  // namespace zentab
