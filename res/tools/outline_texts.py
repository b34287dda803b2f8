#!/usr/bin/env python3
"""Writes the drawings that hold words, with these as outlines: the placeholders of the preview, svg/preview*.svg, and
the Japanese and Chinese faces of the window's buttons, svg/button-*.svg.

By hand, after a text or a drawing changed: python3 res/tools/outline_texts.py
Needs python3-fonttools, fonts-noto-core and fonts-noto-cjk; the build needs none of them.
"""
from pathlib import Path

from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

FONTS = Path("/usr/share/fonts")
LATIN = (FONTS / "truetype/noto/NotoSans-Regular.ttf", -1)
JAPANESE = (FONTS / "opentype/noto/NotoSansCJK-Regular.ttc", "Noto Sans CJK JP")
CHINESE = (FONTS / "opentype/noto/NotoSansCJK-Regular.ttc", "Noto Sans CJK SC")
WIDTH, HEIGHT, SIZE, BASELINE = 400, 290, 15, 208

# language: font, "click a file", "no preview"
TEXTS = {
    "en": (LATIN, "Click a file to preview it", "No preview available"),
    "fr": (LATIN, "Cliquez sur un fichier pour en voir l’aperçu", "Aucun aperçu disponible"),
    "it": (LATIN, "Fare clic su un file per vederne l’anteprima", "Anteprima non disponibile"),
    "es": (LATIN, "Haga clic en un archivo para ver su vista previa", "Vista previa no disponible"),
    "de": (LATIN, "Für eine Vorschau auf eine Datei klicken", "Keine Vorschau verfügbar"),
    "cja": (JAPANESE, "ファイルをクリックするとプレビューが表示されます", "プレビューを表示できません"),
    "cn": (CHINESE, "单击文件即可预览", "没有可用的预览"),
}

PHOTO = """<rect width="400" height="290" fill="#f5f8fb"/>
<rect x=".5" y=".5" width="399" height="289" fill="none" stroke="#d0dbe6"/>
<rect x="144" y="76" width="112" height="88" rx="7" fill="#fff" stroke="#8ea5bd" stroke-width="2.5"/>
<rect x="153" y="85" width="94" height="70" rx="2" fill="#e6eff8"/>
"""
SCENE = """<circle cx="173" cy="103" r="7" fill="#fff" stroke="#8ea5bd" stroke-width="2"/>
<path d="M153 148 181 118l20 22 17-16 29 26v3a2 2 0 0 1-2 2h-90a2 2 0 0 1-2-2z" fill="#a9c6e3"/>
<path d="M153 148 181 118l20 22 17-16 29 26" fill="none" stroke="#8ea5bd" stroke-width="2.2" stroke-linejoin="round"/>
"""
# A pointer for the picture that invites a click, a stroke across the one that says there is nothing.
POINTER = """<path d="M240 134v31l7.4-6.6 5.2 11.6 6.2-2.8-5.2-11.4 10-1z" fill="#2f6fb0" stroke="#fff" stroke-width="2.5"
 stroke-linejoin="round"/>
"""
STROKE = """<path d="M139 170 261 70" stroke="#f5f8fb" stroke-width="8"/>
<path d="M140 169 260 71" stroke="#8ea5bd" stroke-width="3" stroke-linecap="round"/>
"""


def open_font(font):
    path, family = font
    if family == -1:
        return TTFont(path)
    for number in range(32):
        face = TTFont(path, fontNumber=number)
        if face["name"].getDebugName(1) == family:
            return face
    raise SystemExit(f"no face {family} in {path}")


def outline(font, text, size, x, baseline):
    """Path data of `text` from `x` on, and its width; y grows downwards."""
    face = open_font(font)
    glyphs, names, scale = face.getGlyphSet(), face.getBestCmap(), size / face["head"].unitsPerEm
    pen = SVGPathPen(glyphs, ntos=lambda number: f"{number:.2f}".rstrip("0").rstrip("."))
    start = x
    for letter in text:
        glyph = glyphs[names[ord(letter)]]
        glyph.draw(TransformPen(pen, (scale, 0, 0, -scale, x, baseline)))
        x += glyph.width * scale
    return pen.getCommands(), x - start


def centred(font, text):
    width = outline(font, text, SIZE, 0, BASELINE)[1]
    assert width <= WIDTH - 28, f"too wide: {text}"
    return outline(font, text, SIZE, (WIDTH - width) / 2, BASELINE)[0]


# picture: words by language, the drawing in front of them, colour, colour where the button is disabled
BUTTONS = {
    "Add-file": ({"JA": "追加", "CN": "添加"}, "add", "#23324a", "#7a8797"),
    "Repair": ({"JA": "修復", "CN": "修复"}, None, "#ffffff", "#5a6a7e"),
    "Stop": ({"JA": "停止", "CN": "停止"}, "stop", "#23324a", "#7a8797"),
    "Save-files": ({"JA": "修復した写真を保存", "CN": "保存已修复的照片"}, None, "#ffffff", "#5a6a7e"),
}


def button_faces(folder):
    """Prints the lines for CMakeLists.txt, since their widths follow from the words."""
    for name, (words, icon, colour, pale) in BUTTONS.items():
        for language, text in words.items():
            font = JAPANESE if language == "JA" else CHINESE
            left, inner = 0, ""
            if icon:
                left = 25
                inner = "".join((folder / f"{icon}.svg").read_text(encoding="utf-8").splitlines(keepends=True)[1:-1])
            path, width = outline(font, text, 14, left, 15)
            width = round(left + width + 1)
            for suffix, fill in (("", colour), ("-disabled", pale)):
                drawing = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} 20">\n<title>{text}</title>\n'
                           f'{inner}<path fill="{fill}" d="{path}"/>\n</svg>\n')
                (folder / f"button-{name}{language}{suffix}.svg").write_text(drawing, encoding="utf-8")
                print(f'kesmira_picture(button-{name}{language}{suffix} '
                      f'"{name.replace("-", " ")}{language}{suffix}" {width} 20)')


folder = Path(__file__).resolve().parent.parent / "svg"
for language, (font, click, none) in TEXTS.items():
    for name, mark, text in (("preview1", POINTER, click), ("preview", STROKE, none)):
        drawing = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}">\n<title>{text}</title>\n'
                   f'{PHOTO}{SCENE}{mark}<path fill="#3f5068" d="{centred(font, text)}"/>\n</svg>\n')
        (folder / f"{name}{language}.svg").write_text(drawing, encoding="utf-8")
button_faces(folder)
