#include "workbench/ide/kdevelop/problem_list.h"

#include <QCoreApplication>
#include <algorithm>
#include <interfaces/icore.h>
#include <interfaces/ilanguagecontroller.h>
#include <shell/problem.h>
#include <shell/problemmodel.h>
#include <shell/problemmodelset.h>

namespace workbench {
namespace {

QString ListId() {
  return QStringLiteral("DeploymentManager");
}

QString ListName() {
  return QCoreApplication::translate("workbench::TDeploymentView", "Deployment");
}

KDevelop::IProblem::Ptr Described(const TListProblem& problem) {
  using KDevelop::IProblem;
  IProblem::Ptr described(new KDevelop::DetectedProblem(ListName()));
  const int line = std::max(problem.Line - 1, 0); // theirs count from 0 on
  described->setFinalLocation(KDevelop::DocumentRange(KDevelop::IndexedString(problem.File),
                                                      KTextEditor::Range(line, 0, line, 0)));
  described->setFinalLocationMode(IProblem::WholeLine);
  described->setDescription(problem.Text);
  described->setSeverity(problem.IsError ? IProblem::Error : IProblem::Warning);
  return described;
}

} // namespace

TProblemList::TProblemList() : FModel(std::make_unique<KDevelop::ProblemModel>(nullptr)) {
  KDevelop::ICore::self()->languageController()->problemModelSet()->addModel(ListId(), ListName(),
                                                                             FModel.get());
}

TProblemList::~TProblemList() {
  KDevelop::ICore::self()->languageController()->problemModelSet()->removeModel(ListId());
}

void TProblemList::Show(const std::vector<TListProblem>& problems) {
  QVector<KDevelop::IProblem::Ptr> described;
  described.reserve(static_cast<int>(problems.size()));
  for (const TListProblem& problem : problems)
    described.push_back(Described(problem));
  FModel->setProblems(described);
}

} // namespace workbench
