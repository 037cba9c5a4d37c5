export type Side = 'left' | 'right'

/**
 * Which consoles stand on which half of the screen and which is in front there. With nothing on the right there
 * is one half only.
 */
export class Desktop {
  left: number[] = []
  right: number[] = []
  frontLeft = 0
  frontRight = 0
  /** The half that the keyboard is in. */
  active: Side = 'left'

  get split(): boolean {
    return this.right.length > 0
  }

  /** The console that shortcuts go to; 0 for none. */
  get front(): number {
    return this.frontOf(this.active)
  }

  on(side: Side): number[] {
    return side === 'left' ? this.left : this.right
  }

  frontOf(side: Side): number {
    return side === 'left' ? this.frontLeft : this.frontRight
  }

  sideOf(handle: number): Side | undefined {
    if (this.left.includes(handle)) return 'left'
    return this.right.includes(handle) ? 'right' : undefined
  }

  /** Takes in which consoles are open now: new ones come to the front of the active half. */
  sync(handles: readonly number[]): void {
    for (const side of ['left', 'right'] as const)
      for (const handle of this.on(side).filter(known => !handles.includes(known))) this.remove(handle)
    for (const handle of handles)
      if (this.sideOf(handle) === undefined) {
        this.on(this.active).push(handle)
        this.bring(handle)
      }
  }

  /** Brings a console to the front of its half and makes that the active one. */
  bring(handle: number): void {
    const side = this.sideOf(handle)
    if (side === undefined) return
    this.active = side
    if (side === 'left') this.frontLeft = handle
    else this.frontRight = handle
  }

  /** Moves a console to the other half. The left half never stands empty beside a full right one. */
  move(handle: number): void {
    const from = this.sideOf(handle)
    if (from === undefined) return
    const to: Side = from === 'left' ? 'right' : 'left'
    if (from === 'left' && this.left.length === 1 && this.right.length === 0) return
    this.remove(handle)
    this.on(this.left.length === 0 && this.right.length === 0 ? 'left' : to).push(handle)
    this.bring(handle)
  }

  private remove(handle: number): void {
    const side = this.sideOf(handle)
    if (side === undefined) return
    const list = this.on(side)
    const at = list.indexOf(handle)
    list.splice(at, 1)
    const next = list[Math.min(at, list.length - 1)] ?? 0
    if (side === 'left' && this.frontLeft === handle) this.frontLeft = next
    if (side === 'right' && this.frontRight === handle) this.frontRight = next
    if (this.left.length === 0 && this.right.length > 0) this.becomeOneHalf()
    if (this.right.length === 0) this.active = 'left'
  }

  private becomeOneHalf(): void {
    this.left = this.right
    this.frontLeft = this.frontRight
    this.right = []
    this.frontRight = 0
    this.active = 'left'
  }
}
