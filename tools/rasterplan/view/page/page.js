"use strict";

const drawing = JSON.parse(document.getElementById("drawing").textContent);
const element = (id) => document.getElementById(id);
const stage = element("stage");

const lengthText = (length) => `${Number(length.toPrecision(6))}${drawing.unit && " " + drawing.unit}`;
const pointText = (point) =>
  point.toArray().map((value, axis) => (value + drawing.origin[axis]).toFixed(drawing.decimals)).join(", ");

const pictures = drawing.pictures.map((row) => new Picture(row));
const lines = drawing.lines.map((ends) =>
  [new THREE.Vector3(...ends.slice(0, 3)), new THREE.Vector3(...ends.slice(3))]);
const points = pictures.length > 0 ? pictures.flatMap((picture) => picture.corners) : lines.flat();

const scene = new THREE.Scene();
scene.add(...pictures.map((picture) => picture.object));
const renderer = new THREE.CSS3DRenderer();
stage.prepend(renderer.domElement);
const camera = new Camera(stage);
const views = new Views(camera, pictures, points, drawing.viewport);
const motion = new Motion(pictures);
const overlay = new Overlay(element("overlay"), camera);
overlay.lines = lines;
overlay.lengthText = lengthText;

let askedAt = null; // when a frame has been asked for that is not drawn yet
let resting = 0;

function draw() {
  motion.move(camera.projection(), performance.now() - askedAt);
  askedAt = null;
  drawFrame();
  clearTimeout(resting);
  resting = setTimeout(rest, 250);
}

function rest() {
  if (motion.outlined.length === 0)
    return;
  motion.rest();
  drawFrame();
}

function drawFrame() {
  renderer.render(scene, camera.lens());
  overlay.draw(isPressed("frames"), motion.outlined);
  element("parallel").setAttribute("aria-pressed", camera.isParallel);
}

function askToDraw() {
  if (askedAt !== null)
    return;
  askedAt = performance.now();
  requestAnimationFrame(draw);
}

// Buttons that stay pressed

function isPressed(id) {
  return element(id).getAttribute("aria-pressed") === "true";
}

function press(id, isOn) {
  element(id).setAttribute("aria-pressed", isOn);
  askToDraw();
}

// The answer to a click

function answer(title, rows) {
  element("answer").hidden = false;
  element("answer").querySelector("h2").textContent = title;
  element("answer").querySelector("dl").replaceChildren(...rows.flatMap(([term, text]) => {
    const [dt, dd] = ["dt", "dd"].map((tag) => document.createElement(tag));
    dt.textContent = term;
    dd.textContent = text;
    return [dt, dd];
  }));
}

function hint(text) {
  element("hint").textContent = text;
  element("hint").hidden = !text;
}

function clearAnswer() {
  element("answer").hidden = true;
  overlay.outline = [];
  overlay.measured = [];
  hint(isPressed("measure") ? "Click two points of pictures." : "");
  askToDraw();
}

function describe(picture) {
  overlay.outline = picture.corners;
  const [u, v] = [picture.pixelU.length(), picture.pixelV.length()];
  answer(picture.name, [
    ["File", picture.path],
    ["Size", `${lengthText(picture.sideU.length())} × ${lengthText(picture.sideV.length())}`],
    ["Pixels", picture.pixels.map((count) => Number(count.toFixed(3))).join(" × ")],
    ["Pixel size", Math.abs(u - v) < 1e-6 * u ? lengthText(u) : `${lengthText(u)} × ${lengthText(v)}`],
    ["Angle to the vertical", `${picture.angleToVertical.toFixed(2)}°`],
  ]);
}

function measure(point) {
  overlay.measured = overlay.measured.length === 1 ? [overlay.measured[0], point] : [point];
  if (overlay.measured.length === 1) {
    answer("First point", [["At", pointText(point)]]);
    return;
  }
  const [first, second] = overlay.measured;
  const step = second.clone().sub(first);
  overlay.label = lengthText(step.length());
  answer(overlay.label, [
    ["From", pointText(first)],
    ["To", pointText(second)],
    ["Level", lengthText(Math.hypot(step.x, step.y))],
    ["Upright", lengthText(step.z)],
  ]);
}

// The corner of a picture that is meant by a point near it.
function cornerNear(picture, x, y) {
  const project = camera.projection();
  return picture.corners.find((corner) => {
    const place = project(corner);
    return Math.hypot(place.x - x, place.y - y) < 8;
  });
}

function click(x, y) {
  const hit = firstHit(pictures, camera.ray(x, y));
  if (isPressed("measure")) {
    if (hit)
      measure(cornerNear(hit.picture, x, y) || hit.point);
  } else if (hit) {
    describe(hit.picture);
  } else {
    clearAnswer();
  }
  askToDraw();
}

// What the user can ask for

let wallNumber = -1;

function showView(name) {
  views[name]();
  wallNumber = -1;
  element("front").value = "";
  hint("");
  askToDraw();
}

function showFront(number) {
  wallNumber = number;
  element("front").value = number;
  const count = views.front(views.walls[number]);
  hint(count > 0 ? `Left out because they stand before this wall: ${count}` : "");
  askToDraw();
}

const actions = {
  overview: () => showView("overview"),
  above: () => showView("above"),
  viewport: () => views.hasViewport && showView("viewport"),
  nextFront: () => views.walls.length > 0 && showFront((wallNumber + 1) % views.walls.length),
  parallel: () => {
    camera.isParallel = !camera.isParallel;
    askToDraw();
  },
  frames: () => press("frames", !isPressed("frames")),
  measure: () => {
    press("measure", !isPressed("measure"));
    stage.classList.toggle("measuring", isPressed("measure"));
    clearAnswer();
  },
  help: () => element("keys").showModal(),
  close: clearAnswer,
};

const keys = {
  "0": actions.overview,
  "1": actions.above,
  "2": actions.viewport,
  "w": actions.nextFront,
  "p": actions.parallel,
  "f": actions.frames,
  "m": actions.measure,
  "?": actions.help,
  "Escape": actions.close,
  "+": () => camera.zoom(1.25, camera.target.clone()),
  "=": () => camera.zoom(1.25, camera.target.clone()),
  "-": () => camera.zoom(0.8, camera.target.clone()),
  "ArrowLeft": (isShift) => isShift ? camera.move(-40, 0) : camera.turn(-0.1, 0),
  "ArrowRight": (isShift) => isShift ? camera.move(40, 0) : camera.turn(0.1, 0),
  "ArrowUp": (isShift) => isShift ? camera.move(0, 40) : camera.turn(0, 0.1),
  "ArrowDown": (isShift) => isShift ? camera.move(0, -40) : camera.turn(0, -0.1),
};

function onKey(event) {
  const action = keys[event.key.length === 1 ? event.key.toLowerCase() : event.key];
  const isTaken = event.ctrlKey || event.metaKey || event.altKey || element("keys").open;
  const isTyping = event.target instanceof HTMLSelectElement;
  if (!action || isTaken || isTyping)
    return;
  event.preventDefault();
  action(event.shiftKey);
  askToDraw();
}

function onWheel(event) {
  event.preventDefault();
  event.stopPropagation(); // the controls would zoom about the middle
  const box = stage.getBoundingClientRect();
  const [x, y] = [event.clientX - box.left, event.clientY - box.top];
  const lines = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? event.deltaY / 3 : event.deltaY / 100;
  const hit = firstHit(pictures, camera.ray(x, y));
  camera.zoom(1.2 ** -THREE.Math.clamp(lines, -3, 3), hit ? hit.point : camera.pointAtTarget(x, y));
  askToDraw();
}

// A press that does not move and is alone is a click; everything else is the controls'.
const pressed = new Map();
let isClick = false;

function onPointer(event) {
  if (event.type === "pointerdown") {
    pressed.set(event.pointerId, [event.clientX, event.clientY]);
    isClick = event.button === 0 && pressed.size === 1 && !event.shiftKey;
  } else if (pressed.has(event.pointerId)) {
    const [x, y] = pressed.get(event.pointerId);
    isClick = isClick && event.type !== "pointercancel" && Math.hypot(event.clientX - x, event.clientY - y) < 5;
    if (event.type !== "pointermove")
      pressed.delete(event.pointerId);
    if (event.type === "pointerup" && isClick) {
      const box = stage.getBoundingClientRect();
      click(event.clientX - box.left, event.clientY - box.top);
    }
  }
  askToDraw();
}

function onResize() {
  camera.resize();
  renderer.setSize(camera.width, camera.height);
  askToDraw();
}

for (const id of ["overview", "above", "viewport", "parallel", "frames", "measure", "help", "close"])
  element(id).addEventListener("click", actions[id]);
element("viewport").disabled = !views.hasViewport;
element("front").append(new Option("Front of…", ""),
  ...views.walls.map((wall, i) => new Option(wallName(wall, i + 1), i)));
element("front").addEventListener("change", (event) => {
  if (event.target.value !== "")
    showFront(Number(event.target.value));
});
stage.addEventListener("wheel", onWheel, {capture: true, passive: false});
stage.addEventListener("pointerdown", onPointer);
for (const type of ["pointermove", "pointerup", "pointercancel"])
  window.addEventListener(type, onPointer);
stage.addEventListener("touchmove", askToDraw, {passive: true});
window.addEventListener("keydown", onKey);
matchMedia("(prefers-color-scheme: dark)").addEventListener("change", askToDraw);
new ResizeObserver(onResize).observe(stage);

onResize();
showView("overview");
