"use strict";

// An eye that looks at a target. It sees in perspective or in parallel, at the target to the same scale.
class Camera {
  static #fieldOfView = 40; // degrees, from top to bottom
  static #margin = 0.92; // the part of the stage that a fitted view fills

  #stage;
  #controls = null;
  #width = 1;
  #height = 1;
  #eye = new THREE.PerspectiveCamera(Camera.#fieldOfView);
  #perspectiveLens = new THREE.PerspectiveCamera(Camera.#fieldOfView);
  #parallelLens = new THREE.OrthographicCamera();

  isParallel = false;

  constructor(stage) {
    this.#stage = stage;
    this.resize();
    this.look(new THREE.Vector3(), new THREE.Vector3(0, 0, 1), new THREE.Vector3(0, 1, 0), 1);
  }

  get width() { return this.#width; }
  get height() { return this.#height; }
  get target() { return this.#controls.target; }
  get distance() { return this.#eye.position.distanceTo(this.target); }
  get towards() { return this.#eye.position.clone().sub(this.target).normalize(); }
  // Of the window, for something as far off as the target.
  get pixelsPerUnit() { return this.#focalLength / this.distance; }

  // In pixels: as far from the eye as this, a unit of space is a pixel.
  get #focalLength() { return this.#height / 2 / Math.tan(THREE.Math.degToRad(Camera.#fieldOfView / 2)); }

  // The controls move along the axes of the eye's matrix, which only renderers would keep up to date.
  #follow() {
    this.#controls.update();
    this.#eye.updateMatrix();
  }

  resize() {
    this.#width = Math.max(this.#stage.clientWidth, 1);
    this.#height = Math.max(this.#stage.clientHeight, 1);
  }

  // Looks at the target from the direction `towards`, with `up` upwards.
  look(target, towards, up, distance) {
    const right = up.clone().cross(towards);
    const standsUpright = Math.abs(right.z) < 1e-6;
    this.#eye.up.copy(standsUpright ? new THREE.Vector3(0, 0, 1) : up);
    this.#eye.position.copy(target).addScaledVector(towards, distance);
    // Straight from above or below nothing else would tell what is upwards.
    if (standsUpright && Math.abs(towards.z) > 1 - 1e-9)
      this.#eye.position.addScaledVector(up, -Math.sign(towards.z) * 1e-5 * distance);
    if (this.#controls)
      this.#controls.dispose();
    this.#controls = new THREE.OrbitControls(this.#eye, this.#stage); // turns about what is upwards by now
    this.#controls.enableKeys = false;
    this.#controls.screenSpacePanning = true;
    this.#controls.target.copy(target);
    this.#follow();
  }

  // Looks so that all points are seen, and are as large as can be.
  fit(points, towards, up) {
    const right = up.clone().cross(towards);
    const box = new THREE.Box3().setFromPoints(
      points.map((p) => new THREE.Vector3(p.dot(right), p.dot(up), p.dot(towards))));
    const center = box.getCenter(new THREE.Vector3());
    const halfWidth = Camera.#margin * this.#width / 2 / this.#focalLength;
    const halfHeight = Camera.#margin * this.#height / 2 / this.#focalLength;
    const distances = points.map((p) =>
      Math.max(Math.abs(p.dot(right) - center.x) / halfWidth, Math.abs(p.dot(up) - center.y) / halfHeight) +
      (this.isParallel ? 0 : p.dot(towards) - center.z));
    const target = new THREE.Vector3().addScaledVector(right, center.x).addScaledVector(up, center.y)
      .addScaledVector(towards, center.z);
    this.look(target, towards, up, Math.max(...distances) || 1);
  }

  // Looks so that the stage is `height` high where the target is, or higher where it is narrow.
  show(target, towards, up, height, ratio) {
    const shown = Math.max(height, height * ratio * this.#height / this.#width);
    this.look(target, towards, up, this.#focalLength * shown / this.#height);
  }

  // Turns about the target, by angles in radians.
  turn(sideways, upwards) {
    const up = this.#eye.up;
    const offset = this.#eye.position.clone().sub(this.target);
    const right = new THREE.Vector3(1, 0, 0).applyQuaternion(this.#eye.quaternion);
    const polar = THREE.Math.clamp(offset.angleTo(up) - upwards, 1e-5, Math.PI - 1e-5);
    offset.applyAxisAngle(right, polar - offset.angleTo(up)).applyAxisAngle(up, sideways);
    this.#eye.position.copy(this.target).add(offset);
    this.#follow();
  }

  // Moves along the picture plane, by pixels at the target.
  move(right, up) {
    const step = new THREE.Vector3(right, up, 0).applyQuaternion(this.#eye.quaternion)
      .divideScalar(this.pixelsPerUnit);
    this.target.add(step);
    this.#eye.position.add(step);
    this.#follow();
  }

  // Magnifies about a point of space, which stays where it is on the stage.
  zoom(factor, about) {
    for (const point of [this.target, this.#eye.position])
      point.sub(about).divideScalar(factor).add(about);
    this.#follow();
  }

  // What the renderer needs. Its lengths are pixels at the target: browsers sort what lies within a twentieth of one
  // of their units as if it were one plane.
  lens() {
    const lens = this.isParallel ? this.#parallelLens : this.#perspectiveLens;
    if (this.isParallel) {
      [lens.left, lens.right] = [-this.#width / 2, this.#width / 2];
      [lens.bottom, lens.top] = [-this.#height / 2, this.#height / 2];
    } else {
      lens.aspect = this.#width / this.#height;
    }
    lens.updateProjectionMatrix();
    this.#eye.updateMatrix();
    lens.position.copy(this.#eye.position);
    lens.quaternion.copy(this.#eye.quaternion);
    lens.scale.setScalar(1 / this.pixelsPerUnit);
    return lens;
  }

  // From space to the stage: x and y in pixels from its left and top, z how many pixels make up a unit there; z is not
  // positive behind the eye. Made once for many points.
  projection() {
    const toEye = this.#eye.quaternion.clone().inverse();
    const matrix = new THREE.Matrix4().makeRotationFromQuaternion(toEye)
      .multiply(new THREE.Matrix4().makeTranslation(...this.#eye.position.clone().negate().toArray()));
    const focalLength = this.#focalLength;
    const scale = this.pixelsPerUnit;
    return (point) => {
      const seen = point.clone().applyMatrix4(matrix);
      const pixels = this.isParallel ? scale : -focalLength / seen.z;
      return new THREE.Vector3(this.#width / 2 + seen.x * pixels, this.#height / 2 - seen.y * pixels, pixels);
    };
  }

  // The points in space that lie at one point of the stage.
  ray(x, y) {
    const onStage = new THREE.Vector3(x - this.#width / 2, this.#height / 2 - y, 0).divideScalar(this.pixelsPerUnit);
    const point = onStage.applyQuaternion(this.#eye.quaternion).add(this.target);
    if (!this.isParallel)
      return new THREE.Ray(this.#eye.position.clone(), point.sub(this.#eye.position).normalize());
    const away = this.towards.negate();
    return new THREE.Ray(point.addScaledVector(away, -1e6 * this.distance), away);
  }

  // Where a point of the stage lies in space when it is as far off as the target.
  pointAtTarget(x, y) {
    const plane = new THREE.Plane().setFromNormalAndCoplanarPoint(this.towards, this.target);
    return this.ray(x, y).intersectPlane(plane, new THREE.Vector3()) || this.target.clone();
  }
}
