#!/usr/bin/python3
"""From a new folder to a finished definition as somebody goes who hears the windows: every thing is
found by its role and name. road.py RULE_STORE HOST"""

import os
import sqlite3
import subprocess
import sys
import tempfile

from desktop import Program, write

DEFINITION = """select f.title, d.title, d.comment from replace d
                join replace f on f.replace_no = d.p_replace_no where d.kind = 'C'"""
RULES = """select r.use_type, r.field_id, r.replace_cond_type, r.replace_title, r.r_text, p.use_type,
           p.replace_cond_type from replace_m r left join replace_m p
           on p.replace_no = r.replace_no and p.replace_m_no = r.p_replace_m_no
           order by r.replace_m_no"""
LINES = "select use_type, s_val, s_method from replace_cond"


def make_folder(program):
    browser = program.window("置換タイトル一覧")
    browser.select("table cell", "条件設定")
    browser.press("作成", "フォルダの作成")
    folder = program.window("置換フォルダの作成")
    folder.write("フォルダ名", "営業")
    folder.press("OK")


def begin_definition(program):
    browser = program.window("置換タイトル一覧")
    browser.select("table cell", "営業")
    browser.press("追加", "置換定義の追加")


def set_field(program):
    editor = program.window("置換の設定")
    editor.select("table cell", "置換条件")
    editor.press("ﾃﾞｰﾀﾍﾞｰｽの項目設定")
    field = program.window("ﾃﾞｰﾀﾍﾞｰｽ項目の設定")
    field.select("list item", "会社名")
    field.press("OK")


def set_condition(program):
    editor = program.window("置換の設定")
    editor.select("table cell", "会社名")
    editor.press("置換条件の設定")
    condition = program.window("置換条件の設定")
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


def set_value(program, node, title, text):
    editor = program.window("置換の設定")
    editor.select("table cell", node)
    editor.press("置換値設定")
    value = program.window("置換値設定")
    value.write("タイトル", title)
    value.write("ﾃｷｽﾄ", text)
    value.press("OK")


def finish(program):
    editor = program.window("置換の設定")
    editor.write("置換ﾀｲﾄﾙ", "敬称")
    editor.write("備考", "会社による敬称")
    editor.press("閉じる", "保存して閉じる")
    browser = program.window("置換タイトル一覧")
    browser.find("table cell", "敬称")
    browser.press("閉じる", "一覧を閉じる")


def walk(program):
    make_folder(program)
    begin_definition(program)
    set_field(program)
    set_condition(program)
    set_value(program, "山田商店（先頭一致）", "得意先", "御中")
    set_value(program, "以外", "その他", "様")
    finish(program)


def expect(store, select, rows):
    found = store.execute(select).fetchall()
    if found != rows:
        raise AssertionError(f"{select}\ngives {found}\nand not {rows}")


def check(store):
    expect(store, DEFINITION, [("営業", "敬称", "会社による敬称")])
    expect(store, LINES, [("S", "山田商店", 2)])
    expect(store, RULES, [
        ("F", "F2", None, None, None, None, None),
        ("C", None, "0", None, None, "F", None),
        ("C", None, "1", None, None, "F", None),
        ("R", None, None, "得意先", "御中", "C", "0"),
        ("R", None, None, "その他", "様", "C", "1"),
    ])


def main(rule_store, host):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "store.db")
        subprocess.run([rule_store, "init", path], check=True)
        store = sqlite3.connect(path, isolation_level=None)
        store.execute("insert into field values('F1','氏名','T'),('F2','会社名','T')")
        process = subprocess.Popen([host, f"Driver=SQLite;Database={path}"])
        try:
            walk(Program(process))
            if process.wait(10) != 0:
                raise AssertionError(f"the host ended with {process.returncode}")
        finally:
            process.kill()
        check(store)


if __name__ == "__main__":
    main(*sys.argv[1:])
