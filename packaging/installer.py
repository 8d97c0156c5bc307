"""The installer: an MSI database of the tables in packaging/msi/ and a cabinet with the program's files.

The same files, version and time give the same bytes wherever and whenever it is made.
"""

import hashlib
import os
import pathlib
import shutil
import subprocess
import time
import uuid

TABLES = pathlib.Path(__file__).resolve().parent / "msi"
ICON = TABLES.parents[1] / "resources" / "icons" / "aplikace.ico"

# All packages of the program, of every version and for every processor, replace each other.
UPGRADE_CODE = "{AF376EF0-A2AF-42DE-A61F-3A4DA6E01EAC}"

# What the installer calls each file: its component. The list's files belong to the component that is left out where a
# newer list has been downloaded.
COMPONENTS = {"kvez.exe": "Program", "kvez.chm": "Program", "LICENSE.txt": "Program",
              "vd1.kl_": "List", "vd2.kl_": "List", "vd3.kl_": "List"}

TEMPLATES = {"x64": "x64;1029", "x86": "Intel;1029"}

# In place of what is not known.
NONE = "@NONE@"

CZECH = 1029
# Windows takes texts in UTF-8 here with restrictions; Windows-1250 has all that Czech needs.
CODE_PAGE = 1250


def code(*parts):
    """A name-based identifier, spelt as the installer wants it."""
    return "{" + str(uuid.uuid5(uuid.UUID(UPGRADE_CODE), "\n".join(parts))).upper() + "}"


def file_version(path):
    """The version in the program's resources, or None for a file without one."""
    data = path.read_bytes()
    start = data.find(b"\xbd\x04\xef\xfe")
    if start < 0:
        return None
    high, low = (int.from_bytes(data[start + offset:start + offset + 4], "little") for offset in (8, 12))
    return f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"


def dos_time(seconds):
    """A time as the installer's search for files and cabinets have it: date and time in 32 bits, of universal time."""
    moment = time.gmtime(seconds)
    date = (moment.tm_year - 1980) << 9 | moment.tm_mon << 5 | moment.tm_mday
    return date << 16 | moment.tm_hour << 11 | moment.tm_min << 5 | moment.tm_sec // 2


def make_cabinet(files, folder):
    """The cabinet of FILES (name to path) in FOLDER. Each file keeps the time that it has."""
    for name, path in files.items():
        shutil.copy2(path, folder / name)
    run(["gcab", "--create", "--zip", "--nopath", "kvez.cab", *files], folder)
    return folder / "kvez.cab"


def run(command, folder):
    # Cabinets hold local times.
    environment = dict(os.environ, TZ="UTC", LC_ALL="C.UTF-8")
    done = subprocess.run(command, cwd=folder, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        raise RuntimeError(f"{command[0]} failed: {done.stdout.decode('utf-8', 'replace').strip()}")


def file_table(files):
    rows = ["File\tComponent_\tFileName\tFileSize\tVersion\tLanguage\tAttributes\tSequence",
            "s72\ts72\tl255\ti4\tS72\tS20\tI2\ti4", "File\tFile"]
    for number, (name, path) in enumerate(files.items(), 1):
        version = file_version(path) if name.endswith(".exe") else None
        row = [name, COMPONENTS[name], name, path.stat().st_size, version or "", CZECH if version else "",
               512, number]  # 512: the file is vital
        rows.append("\t".join(map(str, row)))
    return "\n".join(rows) + "\n"


def summary(version, processor, package_code, seconds):
    when = time.strftime("%Y/%m/%d %H:%M:%S", time.gmtime(seconds))
    rows = ["PropertyId\tValue", "i2\tl255", "_SummaryInformation\tPropertyId",
            f"1\t{CODE_PAGE}", "2\tInstalační balíček", f"3\tKvez {version}", "4\tVývojáři programu Kvez",
            "5\tInstaller", "6\tKvez: obce a poštovní směrovací čísla", f"7\t{TEMPLATES[processor]}",
            f"9\t{package_code}", f"12\t{when}", f"13\t{when}", "14\t500",
            "15\t10",  # compressed files, and no administrator is needed
            "18\tKvez", "19\t2"]
    return "\n".join(rows) + "\n"


def rich_text(text):
    """A plain text as the installer's window shows it: without the line ends inside a paragraph, in one line."""
    paragraphs = [" ".join(paragraph.split()) for paragraph in text.replace("\r", "").split("\n\n")]
    return "{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0 Segoe UI;}}\\f0\\fs17 " + "\\par\\par ".join(paragraphs) + "}"


def fill(text, values):
    for name, value in values.items():
        text = text.replace(f"@{name}@", str(value))
    # A property without a value is none.
    return "\n".join(line for line in text.split("\n") if not line.endswith("\t" + NONE))


def make(files, version, processor, seconds, addresses, work, target):
    """Writes the installer TARGET for FILES (name to path), in the order of COMPONENTS.

    SECONDS is the time of what it is made of. A list that was downloaded before it is replaced, because the package
    brings one that is at least as new; one downloaded later stays.
    """
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    files = {name: files[name] for name in COMPONENTS}
    cabinet = make_cabinet(files, work)
    values = {
        "VERSION": version, "UPGRADE_CODE": UPGRADE_CODE, "TIME": dos_time(seconds),
        "SIZE": sum(path.stat().st_size + 1023 for path in files.values()) // 1024,
        "MAIL": addresses["mail"] or NONE, "PAGE": addresses["page"] or NONE,
        "LICENCE": rich_text(files["LICENSE.txt"].read_text("ascii").strip()),
    }
    tables = {path.stem: path.read_text("utf-8") for path in sorted(TABLES.glob("*.idt"))}
    tables["File"] = file_table(files)
    # Whatever differs in a package gives it other codes.
    whole = hashlib.sha256(repr((version, processor, seconds, tables, sorted(values.items()))).encode())
    whole.update(cabinet.read_bytes())
    whole.update(ICON.read_bytes())
    values["PRODUCT_CODE"] = code("product", version, processor, whole.hexdigest())
    package_code = code("package", version, processor, whole.hexdigest())

    command = ["msibuild", "kvez.msi"]
    (work / "_ForceCodepage.idt").write_text(f"\r\n\r\n{CODE_PAGE}\t_ForceCodepage\r\n", "utf-8", newline="")
    command += ["-i", "_ForceCodepage.idt"]
    # One for the list of programs, one for the first window.
    for table in ("Icon", "Binary"):
        (work / table).mkdir()
        shutil.copy(ICON, work / table / "kvez.ico")
    for name, text in tables.items():
        (work / f"{name}.idt").write_text(fill(text, values).replace("\n", "\r\n"), "utf-8", newline="")
        command += ["-i", f"{name}.idt"]
    # The tables are turned into the code page on their way, the summary is taken as it stands.
    (work / "summary.idt").write_bytes(
        summary(version, processor, package_code, seconds).replace("\n", "\r\n").encode("cp1250"))
    command += ["-i", "summary.idt", "-a", "kvez.cab", "kvez.cab"]
    run(command, work)
    os.replace(work / "kvez.msi", target)
    return values["PRODUCT_CODE"]
