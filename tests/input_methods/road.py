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

with open(FOLDER + "/content.sql") as script:
    CONTENT = script.read()

# Where things are, in pixels from the window's corner, negative ones from the corner across.
PLACES = {
    "OK": (-138, -22), "取消": (-51, -22), "削除": (50, -22), "見出し": (90, 40), "ラベル": (200, 17),
    "値1": (90, 58), "値3": (90, 100), "方法3": (300, 100),
    "閉じる": (377, 35), "一覧": (60, 76), "条件設定": (100, 154), "項目": (100, 172), "条件": (100, 190),
}
KEYS = {"-": "minus", "/": "slash", ",": "comma", ".": "period"}


def read_cases():
    """The cases of cases.txt, each its name, what is typed, a look-up and the rows wanted."""
    names, cases = {}, []
    with open(FOLDER + "/cases.txt") as table:
        for line in filter(lambda line: line and line[0] != "#", table.read().split("\n")):
            text = re.sub(r"\$([A-Z]+)", lambda found: names[found[1]], line.strip())
            if line.startswith("  "):
                cases[-1].append(text)
            elif name := re.match(r"([A-Z]+) = ", line):
                names[name[1]] = text[name.end():]
            else:
                cases.append([text])
    return [(what, road, select, wanted) for what, road, select, *wanted in cases]


CASES = read_cases()
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


# A search by name would read the title in the encoding of the host's locale.
def window_in_front(title):
    return run("xdotool", "getactivewindow", "getwindowname") == title


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
