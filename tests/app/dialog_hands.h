// The user's hand in the two file dialogs, as steps of a DialogScript.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "dialogs/browse/frm_browse.h"
#include "tests/support/dialog_script.h"

namespace kelu {

/// Clicks the file in the browse dialog, which shows its folder, and OK.
inline std::function<void(frmBrowse&)> OpenIn(const QString& path) {
    return [path](frmBrowse& form) {
        auto* view = qobject_cast<QAbstractItemView*>(form.FileViewer_->currentWidget());
        const QModelIndex row = form.FileViewer_->Model().RowOf(path);
        ASSERT_TRUE(row.isValid()) << path.toStdString();
        view->scrollTo(row);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(row).center());
        ASSERT_TRUE(form.cmdOK->isEnabled());
        QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    };
}

inline std::function<void(frmBrowse&)> CancelBrowse() {
    return [](frmBrowse& form) { QTest::mouseClick(form.cmdCancel, Qt::LeftButton); };
}

/// Chooses the filter (from 1; 0 leaves the offered one), gives the name and saves.
inline std::function<void(QFileDialog&)> SaveAs(const QString& name, int filter = 0) {
    return [name, filter](QFileDialog& form) {
        auto* types = form.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        auto* edit = form.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_TRUE(types && edit);
        EXPECT_EQ(types->currentText(), QStringLiteral("PNG Files (*.png)"));
        if (filter > 0) {
            types->setCurrentIndex(filter - 1);
            Q_EMIT types->textActivated(types->currentText());
        }
        edit->setText(name);  // as a paste does; typing would open the list of completions
        QTest::mouseClick(form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save), Qt::LeftButton);
    };
}

inline std::function<void(QFileDialog&)> CancelSave() {
    return [](QFileDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); };
}

}  // namespace kelu
