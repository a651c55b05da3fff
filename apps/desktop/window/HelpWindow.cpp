#include "apps/desktop/window/HelpWindow.h"

#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include <array>

namespace formwizard::apps::desktop {
namespace {

struct Page {
  const char* Path;
  T Title;
};

constexpr std::array Pages{Page{"docs/desktop.md", T::HelpWorks}, Page{"docs/generated-forms.md", T::HelpForms},
                           Page{"docs/tasks.md", T::HelpTasks},   Page{"docs/lint.md", T::HelpLint},
                           Page{"README.md", T::HelpReadMe},      Page{"NOTICES.txt", T::LicencesTitle}};

constexpr QSize Opens(960, 680);
constexpr int PagesWidth = 220;

QUrl AddressOf(const QString& page) { return QUrl("qrc:/help/" + page); }

}  // namespace

HelpWindow::HelpWindow(const Texts& texts, QWidget* owner)
    : QWidget(owner, Qt::Window), pages_(new QListWidget), text_(new QTextBrowser) {
  setWindowTitle(texts(T::HelpTitle));
  resize(Opens);
  pages_->setAccessibleName(texts(T::HelpPages));
  pages_->setFrameShape(QFrame::NoFrame);
  text_->setFrameShape(QFrame::NoFrame);
  text_->setAccessibleName(texts(T::HelpTitle));
  text_->setOpenExternalLinks(true);
  text_->document()->setDocumentMargin(16);
  for (const Page& page : Pages) pages_->addItem(texts(page.Title));
  connect(pages_, &QListWidget::currentRowChanged, this,
          [this](int row) { text_->setSource(AddressOf(Pages.at(static_cast<std::size_t>(row)).Path)); });
  connect(text_, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
    for (std::size_t i = 0; i < Pages.size(); ++i) {
      const QSignalBlocker quiet(pages_);
      if (AddressOf(Pages.at(i).Path) == source.adjusted(QUrl::RemoveFragment))
        pages_->setCurrentRow(static_cast<int>(i));
    }
  });
  auto* splitter = new QSplitter;
  splitter->addWidget(pages_);
  splitter->addWidget(text_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({PagesWidth, Opens.width() - PagesWidth});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(splitter);
  for (const char* key : {"Esc", "Ctrl+W"}) {
    connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, &QWidget::close);
  }
}

void HelpWindow::Open(const QString& page) {
  text_->setSource(AddressOf(page.isEmpty() ? Pages.front().Path : page));
  show();
  raise();
  activateWindow();
  text_->setFocus();
}

}  // namespace formwizard::apps::desktop
