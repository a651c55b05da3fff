#include "apps/desktop/window/StartPage.h"

#include "apps/desktop/basics/Days.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/PlainTip.h"
#include "apps/desktop/basics/Theme.h"
#include "support/Strings.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLocale>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr int LargeIcon = 48, EntryIcon = 24, RowHeight = 48, ColumnWidth = 340;
enum Role : int { PathRole = Qt::UserRole, NameRole, FolderRole, DayRole };

QFont Scaled(QFont font, double scale, bool isBold) {
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(isBold);
  return font;
}

// The home folder as users write it.
QString Shortened(const QString& folder) {
  const QString home = QDir::homePath();
  return folder == home || folder.startsWith(home + "/") ? "~" + folder.mid(home.size()) : folder;
}

// Name, folder and day of a file, each in a place of its own.
class RecentDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    option.text.clear();
    option.icon = {};
    option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const QColor strong = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::WindowText);
    const QColor weak = isSelected ? strong : SecondaryText(option.palette);
    const QRect all = option.rect.adjusted(8, 4, -8, -4);
    const QRect icon(all.left(), all.center().y() - EntryIcon / 2, EntryIcon, EntryIcon);
    index.data(Qt::DecorationRole)
        .value<QIcon>()
        .paint(painter, icon, Qt::AlignCenter, isSelected ? QIcon::Selected : QIcon::Normal);
    const QString day = index.data(DayRole).toString();
    const int dayWidth = option.fontMetrics.horizontalAdvance(day) + 12;
    QRect texts = all.adjusted(EntryIcon + 12, 0, -dayWidth, 0);
    const auto draw = [&](const QRect& place, const QColor& colour, const QFont& font, int flags, const QString& text) {
      painter->setPen(colour);
      painter->setFont(font);
      const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideMiddle, place.width());
      painter->drawText(place, flags | Qt::TextSingleLine, shown);
    };
    const QRect upper(texts.topLeft(), QSize(texts.width(), texts.height() / 2));
    draw(upper, strong, Scaled(option.font, 1, true), Qt::AlignVCenter, index.data(NameRole).toString());
    draw(upper.translated(0, upper.height()), weak, option.font, Qt::AlignVCenter, index.data(FolderRole).toString());
    draw(QRect(all.right() - dayWidth, upper.top(), dayWidth, upper.height()), weak, option.font,
         Qt::AlignRight | Qt::AlignVCenter, day);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {option.rect.width(), std::max(RowHeight, 2 * option.fontMetrics.height() + 12)};
  }
};

QLabel* MadeCaption(const QString& text, const QFont& font) {
  auto* caption = new QLabel(text);
  caption->setFont(Scaled(font, 1.1, true));
  return caption;
}

QLabel* MadeNote(const QString& text, const QPalette& palette) {
  auto* note = new QLabel(text);
  QPalette secondary = palette;
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {  // whatever it stands on
    secondary.setColor(role, SecondaryText(palette));
  }
  note->setPalette(secondary);
  note->setWordWrap(true);
  return note;
}

}  // namespace

StartPage::StartPage(const Texts& texts, Entries entries, std::function<void(const QString&)> openRecent)
    : texts_(texts),
      recent_(new QListWidget),
      noRecent_(MadeNote(texts(T::NoRecent), palette())),
      opening_(new QTimer(this)) {
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  recent_->setItemDelegate(new RecentDelegate(recent_));
  recent_->setFrameShape(QFrame::NoFrame);
  recent_->setAccessibleName(texts(T::Recent));
  recent_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The list is another one when a file is open, so it is opened behind the list's own event, once for a double click.
  opening_->setSingleShot(true);
  connect(opening_, &QTimer::timeout, this, [this, open = std::move(openRecent)] { open(chosen_); });
  const auto openItem = [this](const QListWidgetItem* item) {
    chosen_ = item->data(PathRole).toString();
    opening_->start();
  };
  connect(recent_, &QListWidget::itemActivated, this, openItem);
  connect(recent_, &QListWidget::itemClicked, this, openItem);

  auto* left = new QVBoxLayout;
  left->setSpacing(12);
  left->addWidget(MadeCaption(texts(T::Start), font()));
  left->addWidget(Made(T::StartProject, T::StartProjectNote, "open", std::move(entries.OpenProject)));
  left->addWidget(Made(T::StartDictionary, T::StartDictionaryNote, "dictionary", std::move(entries.OpenDictionary)));
  left->addWidget(Made(T::StartSample, T::StartSampleNote, "form-new", std::move(entries.TrySample)));
  left->addWidget(Made(T::StartHelp, T::StartHelpNote, "info", std::move(entries.Help)));
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->setSpacing(12);
  right->addWidget(MadeCaption(texts(T::Recent), font()));
  right->addWidget(recent_, 1);
  right->addWidget(noRecent_);
  right->addStretch();

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(24, 24, 24, 24);
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(24);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(0, 1);
  grid->setRowStretch(2, 4);
  grid->setColumnMinimumWidth(1, ColumnWidth);
  grid->setColumnMinimumWidth(2, ColumnWidth);
  grid->addWidget(MadeHeading(), 1, 1, 1, 2);
  grid->addLayout(left, 2, 1);
  grid->addLayout(right, 2, 2);
  QLabel* hint = MadeNote(texts(T::DropHint), palette());
  hint->setAlignment(Qt::AlignCenter);
  grid->addWidget(hint, 3, 1, 1, 2);
}

QCommandLinkButton* StartPage::Made(T label, T note, const QString& icon, std::function<void()> action) {
  auto* button = new QCommandLinkButton(texts_(label), texts_(note));
  button->setIcon(IconNamed(icon));
  button->setIconSize({EntryIcon, EntryIcon});
  connect(button, &QCommandLinkButton::clicked, this, [action = std::move(action)] { action(); });
  return button;
}

QWidget* StartPage::MadeHeading() {
  auto* heading = new QWidget;
  auto* picture = new QLabel;
  picture->setPixmap(IconNamed("app").pixmap(LargeIcon, LargeIcon));
  auto* name = new QLabel(support::ProductName);
  name->setFont(Scaled(font(), 1.6, true));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(4);
  texts->addWidget(name);
  texts->addWidget(MadeNote(texts_(T::Tagline), palette()));
  auto* row = new QHBoxLayout(heading);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  row->addWidget(picture);
  row->addLayout(texts, 1);
  return heading;
}

void StartPage::Show(const std::vector<RecentFile>& files) {
  recent_->clear();
  for (const RecentFile& file : files) {
    const QFileInfo info(file.Path);
    const bool isProject = info.suffix().toLower() == "vbp";
    const QString name = isProject ? info.completeBaseName() : info.fileName(), day = DayText(texts_, file.Day);
    const QString folder = Shortened(info.absolutePath());
    auto* item = new QListWidgetItem(IconNamed(isProject ? "project" : "dictionary"), name, recent_);
    item->setData(PathRole, file.Path);
    item->setData(NameRole, name);
    item->setData(FolderRole, Shortened(file.Path));
    item->setData(DayRole, day);
    item->setData(Qt::AccessibleTextRole, name + ", " + folder + ", " + day);
    item->setToolTip(PlainTip(file.Path));
  }
  recent_->setVisible(!files.empty());
  noRecent_->setVisible(files.empty());
}

}  // namespace formwizard::apps::desktop
