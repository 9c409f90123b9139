"use strict";

// Pictures that lie side by side in a plane, seen from one side.
function wallsOf(pictures) {
  const walls = [];
  const all = new THREE.Box3().setFromPoints(pictures.flatMap((picture) => picture.corners));
  const tolerance = 0.005 * all.getSize(new THREE.Vector3()).length();
  for (const picture of pictures) {
    const {normal, center} = picture;
    const wall = walls.find((each) =>
      each.normal.angleTo(normal) < THREE.Math.degToRad(1) &&
      Math.abs(center.clone().sub(each.center).dot(each.normal)) < tolerance);
    if (wall)
      wall.pictures.push(picture);
    else
      walls.push({normal, center, right: picture.pixelU.clone().normalize(), tolerance, pictures: [picture]});
  }
  return walls;
}

function wallName(wall, number) {
  const others = wall.pictures.length - 1;
  return `${number}. ${wall.pictures[0].name}${others > 0 ? ` and ${others} more` : ""}`;
}

// The views that are offered; each sets the camera and which pictures are left out.
class Views {
  #camera;
  #pictures;
  #points;
  #viewport;

  constructor(camera, pictures, points, viewport) {
    this.#camera = camera;
    this.#pictures = pictures;
    this.#points = points;
    this.#viewport = viewport;
    this.walls = wallsOf(pictures);
  }

  get hasViewport() { return this.#viewport !== null; }

  // What lies in one level is seen from above; everything else from a corner, half from above.
  overview() {
    this.#leaveOut(() => false);
    if (this.#pictures.every((picture) => picture.angleToVertical > 89.9)) {
      this.above();
      return;
    }
    this.#camera.isParallel = false;
    const towards = new THREE.Vector3(-0.5, -0.75, 0.45).normalize();
    const right = new THREE.Vector3(0, 0, 1).cross(towards).normalize();
    this.#camera.fit(this.#points, towards, towards.clone().cross(right));
  }

  above() {
    this.#leaveOut(() => false);
    this.#camera.isParallel = true;
    this.#camera.fit(this.#points, new THREE.Vector3(0, 0, 1), new THREE.Vector3(0, 1, 0));
  }

  viewport() {
    this.#leaveOut(() => false);
    this.#camera.isParallel = true;
    const {target, towards, up, height, ratio} = this.#viewport;
    this.#camera.show(new THREE.Vector3(...target), new THREE.Vector3(...towards), new THREE.Vector3(...up), height,
      ratio);
  }

  // Straight onto a wall, without what stands before it. Returns how many pictures that are.
  front(wall) {
    const count = this.#leaveOut((picture) => {
      const [least, most] = picture.before(wall.center, wall.normal);
      return !wall.pictures.includes(picture) && least > -wall.tolerance && most > wall.tolerance;
    });
    this.#camera.isParallel = true;
    this.#camera.fit(wall.pictures.flatMap((picture) => picture.corners), wall.normal,
      wall.normal.clone().cross(wall.right));
    return count;
  }

  #leaveOut(isLeftOut) {
    let count = 0;
    for (const picture of this.#pictures) {
      picture.hide(isLeftOut(picture));
      count += picture.isHidden ? 1 : 0;
    }
    return count;
  }
}
