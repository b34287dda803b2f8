#!/usr/bin/env python3
"""Writes the placeholder pictures of the preview, svg/preview*.svg, with their texts as outlines.

By hand, after a text or the drawing changed: python3 res/tools/outline_previews.py
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
    "it": (LATIN, "Fai clic su un file per vederne l’anteprima", "Anteprima non disponibile"),
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


def outline(font, text):
    """Path data of `text`, centred; y grows downwards."""
    face = open_font(font)
    glyphs, names, scale = face.getGlyphSet(), face.getBestCmap(), SIZE / face["head"].unitsPerEm
    width = sum(glyphs[names[ord(letter)]].width for letter in text) * scale
    assert width <= WIDTH - 28, f"too wide: {text}"
    x, pen = (WIDTH - width) / 2, SVGPathPen(glyphs, ntos=lambda number: f"{number:.2f}".rstrip("0").rstrip("."))
    for letter in text:
        glyph = glyphs[names[ord(letter)]]
        glyph.draw(TransformPen(pen, (scale, 0, 0, -scale, x, BASELINE)))
        x += glyph.width * scale
    return pen.getCommands()


folder = Path(__file__).resolve().parent.parent / "svg"
for language, (font, click, none) in TEXTS.items():
    for name, mark, text in (("preview1", POINTER, click), ("preview", STROKE, none)):
        drawing = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}">\n<title>{text}</title>\n'
                   f'{PHOTO}{SCENE}{mark}<path fill="#3f5068" d="{outline(font, text)}"/>\n</svg>\n')
        (folder / f"{name}{language}.svg").write_text(drawing, encoding="utf-8")
