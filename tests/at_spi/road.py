#!/usr/bin/python3
"""From a new folder to a finished definition as somebody goes who hears the windows: every thing is
found by its role and name. road.py RULE_STORE HOST"""

import os
import sqlite3
import subprocess
import sys
import tempfile

from desktop import Atspi, Program, has, wait_for, write

WRITTEN = {
    "select p_replace_no, kind, title, comment from replace order by replace_no":
        [(0, "F", "営業", None), (1, "C", "敬称", "会社による敬称")],
    "select use_type, s_val, s_method from replace_cond": [("S", "山田商店", 2)],
    "select p_replace_m_no, use_type, coalesce(field_id, replace_cond_type, replace_title), r_text"
    " from replace_m order by replace_m_no":
        [(0, "F", "F2", None), (1, "C", "0", None), (1, "C", "1", None),
         (2, "R", "得意先", "御中"), (3, "R", "その他", "様")],
}


def make_folder_and_definition(program):
    browser = program.window("置換タイトル一覧")
    browser.select("table cell", "条件設定")
    browser.press("作成", "フォルダの作成")
    folder = program.window("置換フォルダの作成")
    folder.write("フォルダ名", "営業")
    folder.press("OK")
    browser = program.window("置換タイトル一覧")
    browser.select("table cell", "営業", "フォルダ")
    browser.press("追加", "置換定義の追加")


def open_dialog(program, node, kind, button, title):
    editor = program.window("置換の設定")
    editor.select("table cell", node, kind)
    editor.press(button)
    return program.window(title)


def set_field(program):
    field = open_dialog(program, "置換条件", "", "ﾃﾞｰﾀﾍﾞｰｽの項目設定", "ﾃﾞｰﾀﾍﾞｰｽ項目の設定")
    field.select("list item", "会社名")
    field.press("OK")


def set_condition(program):
    condition = open_dialog(program, "会社名", "項目", "置換条件の設定", "置換条件の設定")
    condition.find("label", "会社名")
    # In a grid, a screen reader leaves the cells to the keyboard.
    program.focused("table", "比較値の一覧")
    condition.press_key("F2")
    write(program.focused("text", "比較値"), "山田商店")
    condition.press_key("Tab")
    condition.press_key("Space")
    program.focused("list item", "部分一致")
    condition.press_key("Down")
    program.focused("list item", "先頭一致")
    condition.press_key("Return")
    condition.find("table cell", "先頭一致")
    condition.press("OK")
    message = program.window("Quorvi")
    message.find("label", "設定完了！")
    message.press("OK")


def set_value(program, node, kind, title, text):
    value = open_dialog(program, node, kind, "置換値設定", "置換値設定")
    value.write("タイトル", title)
    value.write("ﾃｷｽﾄ", text)
    value.press("OK")


def finish(program):
    editor = program.window("置換の設定")
    assert not has(editor.find("table cell", "得意先", "置換値"), Atspi.StateType.EXPANDABLE)
    editor.write("置換ﾀｲﾄﾙ", "敬称")
    editor.write("備考", "会社による敬称")
    editor.press("閉じる", "保存して閉じる")


def choose(program, window, entry, place):
    """The entry at that place of the node's menu, counted from its end."""
    window.press_key("Menu")
    program.focused("menu item")
    for _ in range(place):
        window.press_key("Up")
    program.focused("menu item", entry)
    window.press_key("Return")


def search_and_move(program):
    browser = program.window("置換タイトル一覧")
    title = browser.find("table cell", "敬称", "置換定義")
    browser.press_key("F")
    write(program.focused("text", "検索"), "敬称")
    wait_for("the hit being selected", lambda: has(title, Atspi.StateType.SELECTED))
    browser.press_key("Escape")
    choose(program, browser, "移動する項目にする", 1)
    browser.find("table cell", "敬称", "置換定義、移動する項目")
    browser.press_key("Home")
    choose(program, browser, "「敬称」をここへ移動", 2)
    browser.find("table cell", "敬称", "置換定義")


def drag_back(program, store):
    browser = program.window("置換タイトル一覧")
    browser.drag(browser.find("table cell", "敬称", "置換定義"),
                 browser.find("table cell", "営業", "フォルダ"))
    wait_for("the drop", lambda: store.execute(
        "select 1 from replace where kind='C' and p_replace_no=1").fetchall())
    browser.press("閉じる", "一覧を閉じる")


def main(rule_store, host):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "store.db")
        subprocess.run([rule_store, "init", path], check=True)
        store = sqlite3.connect(path, isolation_level=None)
        store.execute("insert into field values('F1','氏名','T'),('F2','会社名','T')")
        process = subprocess.Popen([host, f"Driver=SQLite;Database={path}"])
        try:
            program = Program(process)
            make_folder_and_definition(program)
            set_field(program)
            set_condition(program)
            set_value(program, "山田商店（先頭一致）", "条件", "得意先", "御中")
            set_value(program, "以外", "以外の条件", "その他", "様")
            finish(program)
            search_and_move(program)
            drag_back(program, store)
            assert process.wait(10) == 0, f"the host ended with {process.returncode}"
        finally:
            process.kill()
        for select, rows in WRITTEN.items():
            found = store.execute(select).fetchall()
            assert found == rows, f"{select}\ngives {found}\nand not {rows}"


if __name__ == "__main__":
    main(*sys.argv[1:])
