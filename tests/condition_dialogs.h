#pragma once

#include <QApplication>
#include <QInputMethodEvent>
#include <QTableView>
#include <QTest>

#include "edited_rule.h"

/// A definition with one field of each kind that has a dialog; the text field has conditions.
class condition_dialogs : public edited_rule {
 protected:
  void SetUp() override {
    edited_rule::SetUp();
    store.run_all({
        "insert into field values('F6','年齢','N'),('F7','会員','B')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(1,1,2,'S',2,'西'),(1,1,4,'S',3,'南')",
        "insert into replace values(30,0,'C','日付',null,30),(31,0,'C','数値',null,31),"
        "(32,0,'C','二択',null,32),(33,0,'C','新規',null,33)",
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(30,30,0,'F','F3'),(31,31,0,'F','F6'),(32,32,0,'F','F7'),(33,33,0,'F','F1')",
        "update seqno set replace=33,replace_m=40,replace_cond=7",
    });
  }

  static QTableView& grid() { return *harness::top_window().findChild<QTableView*>("fg"); }
  static std::string cell(int row, int col) {
    return grid().model()->index(row - 1, col).data().toString().toStdString();
  }
  static rows column(int col) {
    rows texts;
    for (int row = 1; row <= grid().model()->rowCount(); ++row) texts.push_back(cell(row, col));
    return texts;
  }
  static void go_to(int row, int col) {
    const QModelIndex index = grid().model()->index(row - 1, col);
    grid().scrollTo(index);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(index).center());
    if (auto* list = QApplication::activePopupWidget()) list->close();
  }
  /// Types into a cell as a user does: composes the text, takes it with Enter.
  static void put(int row, int col, const std::string& text) {
    grid().setCurrentIndex(grid().model()->index(row - 1, col));
    grid().setFocus();
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromStdString(text));
    QApplication::sendEvent(QApplication::focusWidget(), &composed);
    harness::key(Qt::Key_Return);
  }
  /// Picks the entry of a drop-down cell by its number.
  static void pick(int row, int col, const std::string& number) {
    const QModelIndex index = grid().model()->index(row - 1, col);
    grid().setCurrentIndex(index);
    grid().setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(number));
    harness::key(Qt::Key_Return);
  }
  static void ok() { harness::press("Command1"); }
  static void cancel() { harness::press("Command2"); }

  rows lines(int definition) {
    return store.rows(
        "select replace_cond_no,sno,use_type,s_method,s_val,d_f_method,d_f_val,"
        "d_t_method,d_t_val,n_f_method,n_f_val,n_t_method,n_t_val,b_val "
        "from replace_cond where replace_no=" +
        std::to_string(definition) + " order by 1,2");
  }
  rows conditions(int definition) {
    return store.rows(
        "select replace_m_no,p_replace_m_no,replace_cond_type,replace_cond_no from "
        "replace_m where use_type='C' and replace_no=" +
        std::to_string(definition) + " order by 1");
  }
  std::string counters() { return store.value("select * from seqno"); }
};
