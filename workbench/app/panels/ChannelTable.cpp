#include "app/panels/ChannelTable.h"

#include "app/panels/ChannelModel.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace app {

namespace {

constexpr int kRowHeight = 22;

}  // namespace

ChannelTable::ChannelTable(ChannelModel& model, QWidget* parent) : QTableView(parent), m_model(model)
{
    setObjectName("channels");
    setModel(&model);
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | SelectedClicked | AnyKeyPressed | EditKeyPressed);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(std::max(kRowHeight, fontMetrics().height() + 4));
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, colours.color(QPalette::Window));
    setPalette(colours);
    connect(&model, SIGNAL(modelReset()), this, SLOT(ArrangeNames()));
}

void ChannelTable::ArrangeNames()
{
    clearSpans();
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (!m_model.attribute(row)) {
            setSpan(row, 0, 1, ChannelModel::kColumns);
        }
    }
}

QList<int> ChannelTable::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        if (m_model.attribute(index.row()) && !rows.contains(index.row())) {
            rows << index.row();
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

QModelIndex ChannelTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const int step = action == MoveNext ? 1 : action == MovePrevious ? -1 : 0;
    if (step == 0 || !currentIndex().isValid()) {
        return QTableView::moveCursor(action, modifiers);
    }
    const int count = m_model.rowCount();
    for (int row = currentIndex().row() + step; row >= 0 && row < count; row += step) {
        if (m_model.attribute(row) && m_model.isEditable(row)) {
            return m_model.index(row, ChannelModel::kValue);
        }
    }
    return currentIndex();
}

void ChannelTable::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    leaveKeysToTool();
}

void ChannelTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    leaveKeysToTool();
}

/// A row that can be edited would make the whole table a place to type in.
void ChannelTable::leaveKeysToTool()
{
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

/// Whether a value of the current row can begin with what a key writes. "s" keys the selection: it is no number.
bool ChannelTable::beginsValue(const QKeyEvent& event) const
{
    const QModelIndex cell = currentIndex();
    const bool isEditable = m_model.flags(cell) & Qt::ItemIsEditable;
    const kernel::AttributePtr attribute = isEditable ? m_model.attribute(cell.row()) : nullptr;
    if (!attribute || attribute->kind == kernel::ValueKind::Enum
        || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))) {
        return false;
    }
    return QString(attribute->kind == kernel::ValueKind::Bool ? "01oO" : "0123456789+-.").contains(event.text());
}

void ChannelTable::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) {
        event->ignore();  // its field had no use for it; it is still not meant for the rows
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Leave();
        return;
    }
    // The table would search its labels for what is typed, where hot keys are meant.
    const bool isText = !event->text().isEmpty() && event->text().front().isPrint();
    if (event->key() == Qt::Key_Space || (isText && !beginsValue(*event))) {
        event->ignore();
        return;
    }
    QTableView::keyPressEvent(event);
}

}  // namespace app
