#!/usr/bin/env python3
"""Makes site.dxf, the plan of a small housing estate with a plot that waits for its building (millimetres).

    /usr/bin/python3 samples/drawings/make_site.py samples/drawings/site.dxf     (needs python3-ezdxf)

The plot's lower left corner is PLOT_CORNER; its sides run at PLOT_ANGLE to the drawing's axes.
"""
import math
import random
import sys

import ezdxf
from ezdxf.enums import TextEntityAlignment

PLOT_CORNER = (46000.0, 23600.0)
PLOT_ANGLE = 12.0
PLOT_SIZE = (44500.0, 26000.0)

# Where no elevations are measured: buildings, lawn, parking lot and rows of trees, as west, south, east, north; nor on
# the plot.
BUILT_OVER = [(26000, 60000, 54000, 76000), (58000, 60000, 87000, 76000), (96000, 38000, 123000, 73000),
              (97000, 12000, 124000, 33000), (26000, 24000, 37000, 32000), (26000, 11000, 45000, 23000),
              (46000, 11000, 99000, 15500), (24500, 33000, 28500, 60000)]

LAYERS = [  # name, colour, linetype, lineweight in 1/100 mm
    ("用地红线", 1, "DASHDOT", 50),
    ("拟建用地", 6, "DASHED", 30),
    ("建筑-现状", 7, "Continuous", 35),
    ("建筑-填充", 253, "Continuous", 0),
    ("道路-边线", 8, "Continuous", 25),
    ("道路-中线", 4, "CENTER", 13),
    ("道路-路灯", 30, "Continuous", 13),
    ("停车位", 9, "Continuous", 13),
    ("绿化-乔木", 3, "Continuous", 13),
    ("绿化-草地", 93, "Continuous", 0),
    ("水体", 151, "Continuous", 18),
    ("地形-等高线", 34, "Continuous", 13),
    ("地形-高程点", 32, "Continuous", 13),
    ("标注-文字", 7, "Continuous", 18),
    ("标注-尺寸", 5, "Continuous", 13),
    ("图框", 7, "Continuous", 50),
    ("VIEWPORTS", 9, "Continuous", 0),
]


def turned(x, y, origin=PLOT_CORNER, degrees=PLOT_ANGLE):
    angle = math.radians(degrees)
    return (origin[0] + x * math.cos(angle) - y * math.sin(angle), origin[1] + x * math.sin(angle) + y * math.cos(angle))


def is_on_plot(x, y, margin=3500.0):
    angle = math.radians(-PLOT_ANGLE)
    dx, dy = x - PLOT_CORNER[0], y - PLOT_CORNER[1]
    u, v = dx * math.cos(angle) - dy * math.sin(angle), dx * math.sin(angle) + dy * math.cos(angle)
    return -margin < u < PLOT_SIZE[0] + margin and -margin < v < PLOT_SIZE[1] + margin


def make_tables(doc):
    for name, color, linetype, weight in LAYERS:
        layer = doc.layers.add(name, color=color, linetype=linetype)
        layer.dxf.lineweight = weight
    doc.styles.add("宋体", font="simsun.ttf")
    doc.styles.add("HZ", font="txt.shx").dxf.bigfont = "hztxt.shx"
    doc.header["$INSUNITS"] = 4
    doc.header["$LTSCALE"] = 300
    doc.header["$TEXTSTYLE"] = "宋体"
    style = doc.dimstyles.duplicate_entry("EZDXF", "总图")
    for name, value in dict(dimtxt=800, dimasz=500, dimexe=400, dimexo=300, dimgap=250, dimdec=0, dimlfac=1, dimscale=1,
                            dimtxsty="宋体", dimblk="ARCHTICK", dimpost="<>", dimzin=8, dimrnd=0).items():
        style.dxf.set(name, value)


def make_blocks(doc, rng):
    tree = doc.blocks.new("乔木")
    tree.add_circle((0, 0), 1000, dxfattribs={"layer": "0"})
    tree.add_circle((0, 0), 120, dxfattribs={"layer": "0"})
    for k in range(12):
        angle = k * math.pi / 6 + rng.uniform(-0.15, 0.15)
        length = rng.uniform(650, 980)
        tree.add_line((150 * math.cos(angle), 150 * math.sin(angle)), (length * math.cos(angle), length * math.sin(angle)))
    car = doc.blocks.new("小汽车")
    body = [(-900, -2200, 0.2), (900, -2200, 0), (900, 2200, 0.3), (-900, 2200, 0)]
    car.add_lwpolyline([(x, y, b) for x, y, b in body], format="xyb", close=True)
    car.add_lwpolyline([(-750, 500), (750, 500), (620, 1100), (-620, 1100)], close=True)
    car.add_lwpolyline([(-750, -1000), (750, -1000), (650, -1500), (-650, -1500)], close=True)
    bay = doc.blocks.new("车位")
    bay.add_lwpolyline([(0, 0), (0, 5300), (2500, 5300), (2500, 0)])
    lamp = doc.blocks.new("路灯")
    lamp.add_circle((0, 0), 250)
    lamp.add_line((-450, 0), (450, 0))
    lamp.add_line((0, -450), (0, 450))
    spot = doc.blocks.new("高程点")
    spot.add_circle((0, 0), 150)
    spot.add_line((-300, 0), (300, 0))
    spot.add_line((0, -300), (0, 300))
    spot.add_attdef("高程", (400, -250), dxfattribs={"height": 600, "style": "宋体", "prompt": "高程 (m)"}, text="0.00")
    north = doc.blocks.new("指北针")
    north.add_circle((0, 0), 3000)
    north.add_solid([(0, 3000), (-700, -2600), (0, -1800), (0, -1800)])
    north.add_lwpolyline([(0, 3000), (700, -2600), (0, -1800)], close=True)
    north.add_text("北", dxfattribs={"height": 1400, "style": "宋体"}).set_placement(
        (0, 3600), align=TextEntityAlignment.BOTTOM_CENTER)


def label(space, text, at, height=900, rotation=0.0, layer="标注-文字"):
    space.add_text(text, dxfattribs={"layer": layer, "height": height, "rotation": rotation, "style": "宋体"}).set_placement(
        at, align=TextEntityAlignment.MIDDLE_CENTER)


def fill(space, outline, layer, pattern=None, scale=1.0, holes=()):
    hatch = space.add_hatch(color=256, dxfattribs={"layer": layer})
    if pattern:
        hatch.set_pattern_fill(pattern, color=256, scale=scale)
    else:
        hatch.set_solid_fill()
    hatch.paths.add_polyline_path(outline, is_closed=True, flags=1)
    for hole in holes:
        hatch.paths.add_polyline_path(hole, is_closed=True, flags=16)
    return hatch


def building(space, name, floors, corner, size, angle=0.0):
    width, depth = size
    plan = [(0, 0), (width * 0.3, 0), (width * 0.3, -1500), (width * 0.45, -1500), (width * 0.45, 0), (width, 0),
            (width, depth), (0, depth)]
    outline = [turned(x, y, corner, angle) for x, y in plan]
    half = 1000 + 550 * len(name)
    plate = [(-half, -1900), (half, -1900), (half, 2000), (-half, 2000)]
    fill(space, outline, "建筑-填充", "ANSI31", 350,
         holes=[[turned(width / 2 + x, depth / 2 + y, corner, angle) for x, y in plate]])
    space.add_lwpolyline(outline, close=True, dxfattribs={"layer": "建筑-现状", "const_width": 150})
    label(space, name, turned(width / 2, depth / 2 + 900, corner, angle), 1100, angle)
    height = f"{floors}F  H={floors * 3.0:.1f}m" if floors > 1 else f"{floors}F"
    label(space, height, turned(width / 2, depth / 2 - 1000, corner, angle), 800, angle)


def make_roads(space):
    edge, middle = {"layer": "道路-边线"}, {"layer": "道路-中线"}
    # Main street in the south, a lane in the west; their curbs meet in quarter circles.
    space.add_line((-8000, 6000), (140000, 6000), dxfattribs=middle)
    space.add_line((-8000, 2000), (140000, 2000), dxfattribs=edge)
    space.add_line((-8000, 10000), (10000, 10000), dxfattribs=edge)
    space.add_line((30000, 10000), (140000, 10000), dxfattribs=edge)
    space.add_line((20000, 6000), (20000, 100000), dxfattribs=middle)
    space.add_line((16000, 16000), (16000, 100000), dxfattribs=edge)
    space.add_line((24000, 16000), (24000, 100000), dxfattribs=edge)
    space.add_arc((10000, 16000), 6000, 270, 360, dxfattribs=edge)
    space.add_arc((30000, 16000), 6000, 180, 270, dxfattribs=edge)
    # A footpath that winds around the pond.
    path = [(24000, 78000), (38000, 80500), (56000, 77000), (72000, 79500), (88000, 73500), (106000, 72500), (127000, 75500)]
    space.add_spline(path, dxfattribs=edge)
    space.add_spline([(x, y + 2400) for x, y in path], dxfattribs=edge)
    along_street = [(x, 10700) for x in range(32000, 140000, 9000)] + [(x, 1300) for x in range(-5000, 140000, 9000)]
    along_lane = [(x, y) for x in (15300, 24700) for y in range(20000, 100000, 9000)]
    for x, y in along_street + along_lane:
        space.add_blockref("路灯", (x, y), dxfattribs={"layer": "道路-路灯"})
    label(space, "文 昌 路", (70000, 4000), 1800)
    label(space, "学 府 巷", (18000, 56000), 1500, 90)
    label(space, "园 路", (57000, 78300), 800)


def make_terrain(space, rng):
    for k in range(7):
        points = []
        for i in range(14):
            x = 26000 + i * 7600
            y = 84000 + k * 2100 + 1500 * math.sin(i * 0.7 + k * 0.5) + rng.uniform(-300, 300)
            points.append((x, y))
        space.add_lwpolyline(points, dxfattribs={"layer": "地形-等高线", "elevation": (45.0 + k) * 1000,
                                                 "const_width": 120 if k % 5 == 0 else 0})
        label(space, f"{45 + k}", (points[-1][0] + 900, points[-1][1]), 700, layer="地形-等高线")
    for k in range(28):
        x, y = 28000 + (k % 7) * 14500 + rng.uniform(-2500, 2500), 14500 + (k // 7) * 18500 + rng.uniform(-1500, 1500)
        if is_on_plot(x, y) or any(west < x < east and south < y < north for west, south, east, north in BUILT_OVER):
            continue
        insert = space.add_blockref("高程点", (x, y), dxfattribs={"layer": "地形-高程点"})
        insert.add_auto_attribs({"高程": f"{43.2 + y / 40000 + rng.uniform(-0.2, 0.2):.2f}"})


def make_green(space, rng):
    pond = [(x, y, 0.25) for x, y in [(92000, 78500), (101000, 76500), (109000, 79500), (104000, 83000), (96000, 83500)]]
    space.add_lwpolyline(pond, format="xyb", close=True, dxfattribs={"layer": "水体"})
    hatch = space.add_hatch(dxfattribs={"layer": "水体"})
    hatch.set_pattern_fill("DASH", color=151, scale=120)
    hatch.paths.add_polyline_path(pond, is_closed=True, flags=1)
    label(space, "景观水池", (101000, 80500), 900)
    fill(space, [(26000, 12000), (44000, 12000), (44000, 22000), (26000, 22000)], "绿化-草地", "GRASS", 60,
         holes=[[(33000, 15000), (38000, 15000), (38000, 19000), (33000, 19000)]])
    label(space, "健身场地", (35500, 17000), 800)
    along_street = [(47500 + k * 3500, 12900) for k in range(15)] + [(-2000, 14000), (3000, 14500), (8000, 13800)]
    round_houses = [(x, y) for y in (38500, 58500, 79500) for x in (-1500, 2000, 5500, 9000)]
    round_houses += [(x, 57500) for x in range(100500, 122000, 3600)] + [(125800, 14500 + k * 3300) for k in range(15)]
    along_lane = [(26300, 34500 + k * 4500) for k in range(6)] + [(12500, 38500 + k * 20000) for k in range(3)]
    grove = [(26500 + (k % 23) * 4300 + rng.uniform(-900, 900), 82500 + (k // 23) * 3600 + rng.uniform(-600, 600))
             for k in range(69)]
    for x, y in along_street + along_lane + round_houses + grove:
        if math.dist((x, y), (101000, 80500)) < 11500:
            continue
        scale = rng.uniform(0.8, 1.5)
        space.add_blockref("乔木", (x, y), dxfattribs={"layer": "绿化-乔木", "xscale": scale, "yscale": scale,
                                                      "rotation": rng.uniform(0, 360)})


def make_parking(doc, space, rng):
    bays = []
    for k in range(18):
        x = 100000 + (k % 9) * 2500
        flip = k >= 9
        at, rotation = ((x, 14000), 0) if not flip else ((x + 2500, 31000), 180)
        bays.append(space.add_blockref("车位", at, dxfattribs={"layer": "停车位", "rotation": rotation}))
        if rng.random() < 0.6:
            center = (x + 1250, 16700 if not flip else 28300)
            space.add_blockref("小汽车", center, dxfattribs={"layer": "停车位", "rotation": rng.choice([0, 180])})
    space.add_lwpolyline([(100000, 14000), (122500, 14000), (122500, 31000), (100000, 31000)], close=True,
                         dxfattribs={"layer": "停车位"})
    label(space, "地面停车 18 辆", (111250, 22500), 1000)
    doc.groups.new("停车场", "地面停车位").extend(bays)


def make_plot(doc, space):
    width, depth = PLOT_SIZE
    corners = [turned(x, y) for x, y in [(0, 0), (width, 0), (width, depth), (0, depth)]]
    outline = space.add_lwpolyline(corners, close=True, dxfattribs={"layer": "拟建用地"})
    doc.appids.add("QM_SITE")
    outline.set_xdata("QM_SITE", [(1000, "拟建用地"), (1040, width * depth / 1e6), (1070, 1)])
    label(space, "拟建用地", turned(width / 2, -2500), 1100, PLOT_ANGLE)
    space.add_aligned_dim(p1=corners[1], p2=corners[2], distance=-4200, dimstyle="总图",
                          dxfattribs={"layer": "标注-尺寸"}).render()


def make_frame(doc, space):
    red = [(-4000, 11000), (128000, 11000), (128000, 99000), (-4000, 99000)]
    space.add_lwpolyline(red, close=True, dxfattribs={"layer": "用地红线", "const_width": 200})
    space.add_lwpolyline([(-14000, -12000), (146000, -12000), (146000, 108000), (-14000, 108000)], close=True,
                         dxfattribs={"layer": "图框", "const_width": 300})
    space.add_blockref("指北针", (138000, 98000), dxfattribs={"layer": "图框"})
    label(space, "幸福里小区总平面图", (66000, -4500), 2600)
    label(space, "1:250", (92000, -4800), 1500)
    note = ("{\\H1.2x;说明：}\\P1. 图中尺寸以毫米计，高程以米计。\\P2. 建筑定位以轴线交点为准。\\P"
            "3. 现状树木予以保留，%%C300 以上者须挂牌。")
    space.add_mtext(note, dxfattribs={"layer": "标注-文字", "char_height": 900, "width": 40000, "style": "宋体",
                                      "insert": (104000, -1500), "attachment_point": 1})
    sheet = doc.layout("Layout1")
    sheet.page_setup(size=(841, 594), margins=(10, 10, 10, 10), units="mm")
    sheet.add_viewport(center=(410, 287), size=(780, 540), view_center_point=(66000, 48000), view_height=540 * 250)
    sheet.add_lwpolyline([(0, 0), (821, 0), (821, 574), (0, 574)], close=True, dxfattribs={"layer": "图框"})
    label(sheet, "总施-01", (790, 8), 7, layer="图框")


def main(path):
    rng = random.Random(20)
    doc = ezdxf.new("R2010", setup=True)
    space = doc.modelspace()
    make_tables(doc)
    make_blocks(doc, rng)
    make_roads(space)
    make_terrain(space, rng)
    make_green(space, rng)
    make_parking(doc, space, rng)
    for name, floors, corner, size, angle in [
            ("1#住宅楼", 6, (-1000, 24000), (14000, 11000), 0), ("2#住宅楼", 6, (-1000, 44000), (14000, 11000), 0),
            ("3#住宅楼", 11, (-1000, 64000), (14000, 11000), 0), ("4#住宅楼", 11, (28500, 63000), (24000, 10500), 4),
            ("5#住宅楼", 18, (61000, 65500), (24000, 10500), -3), ("社区中心", 3, (99000, 40000), (22000, 15000), 0),
            ("幼儿园", 3, (99000, 60500), (22000, 8500), -4), ("门卫", 1, (28500, 26000), (6000, 4500), 0)]:
        building(space, name, floors, corner, size, angle)
    make_plot(doc, space)
    make_frame(doc, space)
    doc.set_modelspace_vport(height=125000, center=(66000, 48000))
    auditor = doc.audit()
    assert not auditor.errors, auditor.errors
    doc.saveas(path)
    print(f"{path}: {len(space)} entities in model space")


main(sys.argv[1])
