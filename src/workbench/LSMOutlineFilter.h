#pragma once

#include <QSortFilterProxyModel>

/// The designs whose title, identifier or keywords hold each word of the search text, case ignored.
/// Groups always stay. Its source is an LSMOutlineModel.
class LSMOutlineFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSearchText(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QStringList m_words;
};
