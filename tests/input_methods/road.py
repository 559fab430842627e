"""What a user types into the windows with an input method, and the rows that must be stored then.
Runs on a screen and a session bus of its own: road.py METHOD."""

import os
import re
import sqlite3
import subprocess
import sys
import time

METHOD = sys.argv[1]
FOLDER = os.path.dirname(os.path.abspath(__file__))
STORE = os.path.abspath("store.db")
HOST = [FOLDER + "/vorlumine_host", f"Driver=SQLite;Database={STORE}"]

CONTENT = """
insert into field values('F1','氏名','T'),('F2','人数','N'),('F3','来店日','D'),
  ('F4','東京支店','T'),('F5','大阪支店','T');
insert into replace values(1,0,'C','文字','控え',1),(2,0,'C','数',' ',4),(3,0,'C','日付',' ',7),
  (4,0,'C','東京の宛名',' ',0),(5,0,'C',printf('%.98c','a'),' ',10),(6,0,'C','大阪の宛名',' ',0);
insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id,replace_cond_type,
    replace_cond_no) values
  (1,1,0,'F','F1',null,null),(1,2,1,'C',null,'0',1),(1,3,1,'C',null,'1',null),
  (2,4,0,'F','F2',null,null),(2,5,4,'C',null,'0',2),(2,6,4,'C',null,'1',null),
  (3,7,0,'F','F3',null,null),(3,8,7,'C',null,'0',3),(3,9,7,'C',null,'1',null),
  (5,10,0,'F','F1',null,null),(5,11,10,'C',null,'0',4),(5,12,10,'C',null,'1',null);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) values
  (1,1,1,'S','old',2),(1,1,2,'S','kept',1),(5,4,1,'S',printf('%.98c','a'),1);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method)
  values(2,2,1,'N',7,1);
insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_f_val,d_f_method)
  values(3,3,1,'D','2020/02/02',1);
update seqno set replace=6,replace_m=12,replace_cond=4;
"""

# Where things are, in pixels from the window's corner, negative ones from the corner across.
PLACES = {
    "OK": (-138, -22), "取消": (-51, -22), "削除": (50, -22), "見出し": (90, 40), "ラベル": (200, 17),
    "値1": (90, 58), "値3": (90, 100), "方法3": (300, 100),
    "閉じる": (377, 35), "一覧": (60, 76), "条件設定": (100, 154), "項目": (100, 172), "条件": (100, 190),
}
KEYS = {"-": "minus", "/": "slash", ",": "comma", ".": "period"}

NEW = "[一覧]<alt+4>{置換の設定}"
FIRST = "<Down><Return>{置換の設定}"
CONDITION = "[条件]<alt+2>{置換条件の設定}"
TEXTS = FIRST + CONDITION
NUMBERS = "<Down><Down><Return>{置換の設定}" + CONDITION
DATES = "<Down><Down><Down><Return>{置換の設定}" + CONDITION
FIELDS = "<Down><Down><Down><Down><Return>{置換の設定}[条件設定]<alt+1>{ﾃﾞｰﾀﾍﾞｰｽ項目の設定}"
LONG = "<Down><Down><Down><Down><Down><Return>{置換の設定}"

TITLE = "select title from replace where replace_no=1"
LINES = "select coalesce(s_val,n_f_val,d_f_val),coalesce(s_method,n_f_method,d_f_method) " \
        "from replace_cond where replace_no=%d order by replace_cond_no,sno"
STORED = ["old|2", "kept|1"]

# What is typed: letters as they are, <keys>, [presses of the pointer], {windows that come up}.
CASES = [
    ("title, 閉じる", FIRST + "<End>mei[閉じる]", TITLE, ["文字めい"]),
    ("title, frame", FIRST + "<End>mei<alt+F4>", TITLE, ["文字めい"]),
    ("title of a new definition, 閉じる", NEW + "mei[閉じる]",
     "select title from replace where replace_no=7", ["めい"]),
    ("title, given up with Esc too often",
     FIRST + "<End>mei<Escape><Escape><Escape><Escape>ka<Return>[閉じる]", TITLE, ["文字か"]),
    ("title up to the 100th character", LONG + "<End>aka[閉じる]",
     "select length(title) from replace where replace_no=5", ["100"]),
    ("title beyond it, refused and mended", LONG + "<End>akasa[閉じる]{Quorvi}<Return>{置換の設定}"
     "<BackSpace>[閉じる]", "select length(title) from replace where replace_no=5", ["100"]),
    ("remark, 閉じる", FIRST + "<Tab>mei[閉じる]", "select comment from replace where replace_no=1",
     ["めい"]),
    ("folder, OK", "[一覧]<alt+1>{置換フォルダの作成}toukyou<space><Return>eki[OK]",
     "select title from replace where kind='F'", ["東京えき"]),
    ("cell, converted twice", TEXTS + "<Down><Down>toukyou<space>eki<Return><Return>1[OK]",
     LINES % 1, STORED + ["東京えき|1"]),
    ("cell, chosen by digit", TEXTS + "<Down><Down>nagoya<space><space>1<Return><Return>1[OK]",
     LINES % 1, STORED + ["名古屋|1"]),
    ("cell, chosen by Tab", TEXTS + "<Down><Down>oosaka<Tab><Return><Return>1[OK]",
     LINES % 1, STORED + ["大阪|1"]),
    ("cell, given up", TEXTS + "<Down>mei<Escape>[OK]{Quorvi}",
     LINES % 1, STORED),
    ("cell, list of its row", TEXTS + "<Down><Down>mei[方法3]1[OK]", LINES % 1, STORED + ["めい|1"]),
    ("cell, another cell", TEXTS + "<Down><Down>mei[値1][方法3]1[OK]", LINES % 1,
     STORED + ["めい|1"]),
    ("cell, heading", TEXTS + "<Down><Down><F2>mei[見出し]<Return>1[OK]", LINES % 1,
     STORED + ["めい|1"]),
    ("cell, label", TEXTS + "<Down><Down><F2>mei[ラベル]<Return>1[OK]", LINES % 1,
     STORED + ["めい|1"]),
    ("cell, OK", TEXTS + "<F2>mei[OK]", LINES % 1, ["oldめい|2", "kept|1"]),
    ("cell, Cancel", TEXTS + "<F2>mei[取消]{置換の設定}[閉じる]{置換タイトル一覧}", LINES % 1, STORED),
    ("cell, 削除, and on", TEXTS + "<F2>mei[削除]<shift+Tab>ka<Return>[OK]", LINES % 1, ["か|1"]),
    ("cell up to the 100th character", LONG + CONDITION + "<F2>toukyou[OK]",
     "select replace(s_val,'a','') from replace_cond where replace_no=5", ["とう"]),
    ("grid without rows", FIRST + "[項目]<alt+2>{置換条件の設定}[削除]<shift+Tab>suzuki<Return><Return>1[OK]",
     LINES % 1, STORED + ["すずき|1"]),
    ("number", NUMBERS + "12345<Return><Return>[OK]", LINES % 2, ["12345|1"]),
    ("number with separator", NUMBERS + "1,234<Return><Return>[OK]", LINES % 2, ["1234|1"]),
    ("number below zero", NUMBERS + "-12.5<Return><Return>[OK]", LINES % 2, ["-12.5|1"]),
    ("date", DATES + "2024/01/05<Return><Return>[OK]", LINES % 3, ["2024/01/05|1"]),
    ("fields, closed list", FIELDS + "toukyou<space><Return><Return>",
     "select field_id from replace_m where replace_no=4", ["F4"]),
    ("fields, open list", FIELDS + "<alt+Down>oosaka<space><Return><Return><Return>",
     "select field_id from replace_m where replace_no=4", ["F5"]),
    ("titles", "[一覧]<alt+1>{置換フォルダの作成}[取消]{置換タイトル一覧}oosaka<space><Return><Return>{置換の設定}<End>mei[閉じる]",
     "select title from replace where replace_no=6", ["大阪の宛名めい"]),
    ("rules, and the title of a value",
     FIRST + "[条件設定]igai<space><Return><alt+3>{置換値設定}mei<Return><Tab><Tab>ka[OK]",
     "select p_replace_m_no,replace_title,r_text from replace_m where use_type='R'", ["3|めい|か"]),
]
CASES += [(what + ", at scale 2", *rest) for what, *rest in CASES
          if what in ("title, 閉じる", "cell, converted twice", "cell, another cell", "titles")]


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout.strip()


def until(condition, seconds):
    """Whether the condition comes true in time."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


def screen():
    with open("Xvfb_screen0", "rb") as pixels:
        return pixels.read()


def act_and_settle(*command):
    """Does it, waits for the screen to change, and then until nothing moves. Not everything shows."""
    before = screen()
    run(*command)
    until(lambda: screen() != before, 0.5)
    still_since = last = None

    def settled():
        nonlocal still_since, last
        now = screen()
        if now != last:
            still_since, last = time.monotonic(), now
        return time.monotonic() - still_since > 0.15

    until(settled, 3)


def window_in_front(title):
    found = run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()
    return bool(found) and run("xdotool", "getactivewindow") == found[-1]


def press(place, scale):
    window = run("xdotool", "getactivewindow")
    size = dict(re.findall(r"(WIDTH|HEIGHT)=(\d+)",
                           run("xdotool", "getwindowgeometry", "--shell", window)))
    x, y = (scale * part + (int(size[side]) if part < 0 else 0)
            for part, side in zip(PLACES[place], ("WIDTH", "HEIGHT")))
    run("xdotool", "mousemove", "--window", window, str(x), str(y))
    act_and_settle("xdotool", "click", "1")


def walk(road, scale):
    for key, place, window, text in re.findall(r"<(.+?)>|\[(.+?)\]|\{(.+?)\}|([^<[{]+)", road):
        if window and not until(lambda: window_in_front(window), 10):
            raise TimeoutError("no window " + window)
        elif place:
            press(place, scale)
        elif not window:
            keys = [key] if key else [KEYS.get(letter, letter) for letter in text]
            act_and_settle("xdotool", "key", "--delay", "40", *keys)


def rows(select):
    connection = sqlite3.connect(STORE)
    found = ["|".join(map(str, row)) for row in connection.execute(select)]
    connection.close()
    return found


def try_case(road, select, wanted, scale):
    """Empty if the rows are stored, else what went wrong."""
    run("rm", "-f", STORE, STORE + "-wal", STORE + "-shm")
    run(FOLDER + "/rule_store", "init", STORE)
    connection = sqlite3.connect(STORE)
    connection.executescript(CONTENT)
    connection.close()
    host = subprocess.Popen(HOST, env={**os.environ, "QT_SCALE_FACTOR": str(scale)})
    try:
        walk("{置換タイトル一覧}" + road, scale)
        if not until(lambda: rows(select) == wanted, 5):
            return f"stored {rows(select)} instead of {wanted}"
        return "" if host.poll() in (None, 0) else f"the host ended with {host.poll()}"
    except (TimeoutError, KeyError) as failure:
        return f"{failure}; the host: {host.poll()}"
    finally:
        host.kill()
        host.wait()


def start_method():
    """Turns the method on for Japanese from the first key, and waits until it composes."""
    if METHOD == "fcitx5":
        os.makedirs(".config/fcitx5")
        with open(".config/fcitx5/profile", "w") as profile:
            profile.write("[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=mozc\n"
                          "[Groups/0/Items/0]\nName=keyboard-us\n[Groups/0/Items/1]\nName=mozc\n"
                          "[GroupOrder]\n0=Default\n")
        with open(".config/fcitx5/config", "w") as config:
            config.write("[Behavior]\nActiveByDefault=True\n")
        daemon = ["fcitx5", "--disable=wayland,kimpanel"]
    else:
        os.makedirs(".config/mozc")
        with open(".config/mozc/ibus_config.textproto", "w") as config:
            config.write('engines {\n name: "mozc-jp"\n longname: "Mozc"\n layout: "default"\n'
                         ' rank: 80\n}\nactive_on_launch: True\n')
        daemon = ["ibus-daemon", "--panel=disable", "--config=disable"]
    with open("daemon.log", "w") as log:
        processes = [subprocess.Popen(command, stdout=log, stderr=log)
                     for command in (["openbox", "--sm-disable"], daemon)]
    if METHOD == "ibus":
        until(lambda: run("ibus", "engine", "mozc-jp") or run("ibus", "engine") == "mozc-jp", 20)
    # The converter takes its time to start; letters that come before are Latin ones.
    for _ in range(10):
        if not try_case("[一覧]<alt+1>{置換フォルダの作成}ka[OK]",
                        "select title from replace where kind='F'", ["か"], 1):
            return processes
    print("FAILED", METHOD + ": does not compose", flush=True)
    sys.exit(1)


def main():
    processes = start_method()
    status = 0
    for what, *case in CASES:
        wrong = try_case(*case, scale=2 if what.endswith("scale 2") else 1)
        print("FAILED" if wrong else "ok", METHOD + ":", what, *([wrong] if wrong else []), flush=True)
        status = 1 if wrong else status
    for process in processes:
        process.terminate()
    return status


sys.exit(main())
