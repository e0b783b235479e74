#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

// A plugin for clang-tidy, loaded by scripts/lint. Without it the checks visit all that the headers
// of the toolkit and of the library declare, three quarters of the time, to drop what they find
// there.
namespace {

/// Comes before the checks and leaves them the declarations of our own files.
class OwnDeclarations : public clang::ASTConsumer {
public:
    void HandleTranslationUnit(clang::ASTContext& context) override {
        const clang::SourceManager& sources = context.getSourceManager();
        std::vector<clang::Decl*> own;
        for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
            if (!sources.isInSystemHeader(sources.getExpansionLoc(declaration->getLocation()))) {
                own.push_back(declaration);
            }
        }
        context.setTraversalScope(own);
    }
};

class OwnCodeOnly : public clang::PluginASTAction {
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&,
                                                          llvm::StringRef) override {
        return std::make_unique<OwnDeclarations>();
    }
    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override {
        return true;
    }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<OwnCodeOnly> registration("own-code-only", "");

} // namespace
