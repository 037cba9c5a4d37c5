import { createApp } from 'vue'
import './elements'
import '../renderers/index'
import '../layouts/index'
import './theme.css'
import App from './App.vue'

createApp(App).mount('#app')
