import { computed, onBeforeUnmount, onMounted, ref, watch, type ComputedRef, type Ref } from 'vue'

/** The page's style sheets know this width too. */
const NARROW = '(max-width: 720px)'
const STORED_AS = 'menu'

export interface MenuPlace {
  /** The menu lies over the consoles instead of beside them. */
  narrow: Ref<boolean>
  shown: ComputedRef<boolean>
  toggle: () => void
}

/**
 * Whether the menu is shown. Beside the consoles that is a person's lasting choice; on a narrow page it comes up
 * when it is asked for, or nothing else is there, and goes when a console comes to the front:
 * `front` is its handle, and `brought` changes whenever it is brought there again.
 */
export function useMenuPlace(front: () => number, brought: () => unknown): MenuPlace {
  const query = window.matchMedia(NARROW)
  const narrow = ref(query.matches)
  const docked = ref(localStorage.getItem(STORED_AS) !== 'hidden')
  const pulledOut = ref(front() === 0)
  const shown = computed(() => (narrow.value ? pulledOut.value : docked.value))

  function toggle(): void {
    if (narrow.value) {
      pulledOut.value = !pulledOut.value
      return
    }
    docked.value = !docked.value
    localStorage.setItem(STORED_AS, docked.value ? 'shown' : 'hidden')
  }

  const follow = (): void => { narrow.value = query.matches }
  onMounted(() => query.addEventListener('change', follow))
  onBeforeUnmount(() => query.removeEventListener('change', follow))
  watch([front, brought], () => { pulledOut.value = front() === 0 })

  return { narrow, shown, toggle }
}
