#include "app/widgets/equation/equation_field.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QToolTip>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::app {
namespace {

constexpr int kMostOffered = 8;
constexpr int kRoomForBar = 24;   // of the list's scroll bar, in pixels
constexpr int kCursorMargin = 5;  // of a field's cursor rectangle to each side
constexpr int kLeastMark = 7;

QStandardItemModel* ModelOf(const std::vector<EquationWord>& words, QObject* parent) {
  auto* const model = new QStandardItemModel(parent);
  for (const EquationWord& word : words) {
    auto* const item = new QStandardItem(QString::fromStdString(word.text));
    item->setToolTip(QString::fromStdString(word.meaning));
    model->appendRow(item);
  }
  return model;
}

}  // namespace

EquationField::EquationField(const Session& session, std::vector<EquationWord> variables,
                             QWidget* parent)
    : QLineEdit(parent),
      session_(session),
      variables_(std::move(variables)),
      names_(ModelOf(WordsFor(session, variables_), this)),
      units_(ModelOf(UnitWords(), this)),
      completer_(new QCompleter(this)) {
  completer_->setWidget(this);
  completer_->setCaseSensitivity(Qt::CaseInsensitive);
  completer_->setMaxVisibleItems(kMostOffered);
  completer_->popup()->setObjectName(QStringLiteral("ListCompletions"));
  connect(this, &QLineEdit::textChanged, this, &EquationField::Check);
  connect(this, &QLineEdit::textEdited, this, [this] { Offer(false); });
  connect(completer_, QOverload<const QModelIndex&>::of(&QCompleter::activated), this,
          &EquationField::Insert);
  connect(completer_, QOverload<const QModelIndex&>::of(&QCompleter::highlighted), this,
          &EquationField::ShowMeaning);
}

void EquationField::Check() {
  remark_ = CheckEquation(session_, text().toStdString(), variables_);
  setAccessibleDescription(QString::fromStdString(remark_.text));
  update();
}

std::optional<WordAtCursor> EquationField::WordHere() const {
  const auto cursor = static_cast<std::size_t>(text().left(cursorPosition()).toUtf8().size());
  return WordAt(text().toStdString(), cursor);
}

bool EquationField::IsOffering() const { return completer_->popup()->isVisible(); }

// Without a beginning there are all names, when the user asks for them.
void EquationField::Offer(bool isAsked) {
  const std::optional<WordAtCursor> word = WordHere();
  if (!word && !isAsked) {
    completer_->popup()->hide();
    return;
  }
  const QByteArray bytes = text().left(cursorPosition()).toUtf8();
  const QString begun =
      word ? QString::fromUtf8(bytes.mid(static_cast<qsizetype>(word->begin))) : QString();
  QStandardItemModel* const words = word && word->isUnit ? units_ : names_;
  if (completer_->model() != words) completer_->setModel(words);
  completer_->setCompletionPrefix(begun);
  const int count = completer_->completionCount();
  if (count == 0 || (count == 1 && completer_->currentCompletion() == begun)) {
    completer_->popup()->hide();
    return;
  }
  QAbstractItemView& list = *completer_->popup();
  QRect place = cursorRect();
  place.setTop(0);
  place.setHeight(height());
  place.setWidth(list.sizeHintForColumn(0) + kRoomForBar);
  completer_->complete(place);
  list.setCurrentIndex(completer_->completionModel()->index(0, 0));
}

void EquationField::ShowMeaning(const QModelIndex& index) {
  const QAbstractItemView& list = *completer_->popup();
  if (!index.isValid() || !list.isVisible()) return;
  const QString meaning = index.data(Qt::ToolTipRole).toString();
  QToolTip::showText(list.mapToGlobal(QPoint(list.width(), 0)), meaning, completer_->popup());
}

void EquationField::Insert(const QModelIndex& index) {
  const std::optional<WordAtCursor> word = WordHere();
  QString inserted = index.data().toString();
  const QByteArray bytes = text().toUtf8();
  if (word) {
    const auto charactersUpTo = [&bytes](std::size_t place) {
      return static_cast<int>(QString::fromUtf8(bytes.left(static_cast<qsizetype>(place))).size());
    };
    const int begin = charactersUpTo(word->begin);
    const int end = charactersUpTo(word->end);
    if (inserted.endsWith('(') && text().mid(end, 1) == QLatin1String("(")) inserted.chop(1);
    setSelection(begin, end - begin);
  }
  insert(inserted);
  completer_->popup()->hide();
  QToolTip::hideText();
}

void EquationField::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (IsOffering() && (isReturn || key == Qt::Key_Escape)) {
    QToolTip::hideText();
    event->ignore();  // the list takes it
    return;
  }
  if (key == Qt::Key_Space && event->modifiers() == Qt::ControlModifier) {
    Offer(true);
    return;
  }
  if (isReturn && takesReturn_) {
    Q_EMIT Confirmed();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

// Comes in the place of the Tab key.
bool EquationField::focusNextPrevChild(bool next) {
  if (!IsOffering() || !next) return QLineEdit::focusNextPrevChild(next);
  Insert(completer_->popup()->currentIndex());
  return true;
}

void EquationField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (remark_.character < 0) return;
  const auto widthUpTo = [this](int count) {
    return fontMetrics().horizontalAdvance(text().left(count));
  };
  // The text may be scrolled; the cursor tells where it is.
  const QRect cursor = cursorRect();
  const int origin = cursor.left() + kCursorMargin - widthUpTo(cursorPosition());
  const int left = origin + widthUpTo(remark_.character);
  const int right =
      std::max(origin + widthUpTo(remark_.character + remark_.length), left + kLeastMark);
  QPainter painter(this);
  painter.setClipRect(rect().adjusted(2, 2, -2, -2));
  const QColor base = palette().color(QPalette::Base);
  const QColor colour = remark_.isFault ? editor::FailureOn(base) : editor::ProposalOn(base);
  painter.fillRect(left, cursor.bottom() - 1, right - left, 2, colour);
}

}  // namespace zentab::app
